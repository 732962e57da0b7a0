#pragma once

#include <map>
#include <pugixml.hpp>
#include <regex>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// What clients of other makes accept; data/answers.txt and data/types.txt have the rules.
class TAnswerRules {
 public:
  TAnswerRules();

  /// What a strict client would refuse in an answer, or nothing.
  std::string Check(const std::string& text) const;

 private:
  struct TElement {
    std::map<std::string, bool> attributes;  ///< whether each must be there
    std::regex children;
    bool holdsText;
  };

  std::string CheckElement(const pugi::xml_node& node, const std::string& type) const;
  std::string CheckAttributes(const pugi::xml_node& node, const TElement& element) const;
  bool IsText(const std::string& type, const std::string& text) const;

  std::map<std::string, TElement> elements_;
  std::map<std::string, std::regex> texts_;
};

}  // namespace NZELVYR20

#include "TAnswerRules.h"

#include <boost/algorithm/string.hpp>
#include <sstream>

#include "Cases.h"

namespace NZELVYR20 {
namespace {

std::vector<std::vector<std::string>> ReadRows(const std::string& name) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(ReadData(name));
  for (std::string line; std::getline(lines, line);) {
    if (line[0] == '#') continue;
    std::vector<std::string>& row = rows.emplace_back();
    boost::split(row, line, [](char letter) { return letter == ';'; });
    for (std::string& cell : row) boost::trim(cell);
  }
  return rows;
}

/// The names of children, of more than two alike in a row only two.
std::string ChildNames(const pugi::xml_node& node) {
  std::string names;
  std::string last;
  int count = 0;
  for (const pugi::xml_node& child : node) {
    count = last == child.name() ? count + 1 : 1;
    last = child.name();
    if (count <= 2) names += last.empty() ? "text," : last + ',';
  }
  return names;
}

}  // namespace

TAnswerRules::TAnswerRules() {
  for (const std::vector<std::string>& row : ReadRows("answers.txt")) {
    TElement element = {{}, std::regex(row.at(2)), row.at(2) == "text"};
    std::istringstream words(row.at(1));
    for (std::string word; words >> word;) {
      const bool isNeeded = word.back() == '!';
      element.attributes[word.substr(0, word.size() - (isNeeded ? 1 : 0))] = isNeeded;
    }
    elements_.emplace(row.at(0), element);
  }
  for (const std::vector<std::string>& row : ReadRows("types.txt")) {
    texts_.emplace(row.at(0), row.at(1));
  }
}

std::string TAnswerRules::Check(const std::string& text) const {
  if (text.find("/>") != std::string::npos) return "a tag in the short form";
  if (text.find("<!") != std::string::npos) return "a comment, a DOCTYPE or CDATA";
  pugi::xml_document document;
  const pugi::xml_parse_result result =
      document.load_string(text.c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
  if (!result) return result.description();
  if (std::string(document.document_element().name()) != "CIM") return "no CIM";
  return CheckElement(document.document_element(), "");
}

std::string TAnswerRules::CheckElement(const pugi::xml_node& node, const std::string& type) const {
  const auto found = elements_.find(node.name());
  if (found == elements_.end()) return std::string("element ") + node.name();
  std::string fault = CheckAttributes(node, found->second);
  if (!fault.empty()) return fault;
  const std::string ownType = node.attribute("TYPE").as_string(type.c_str());
  if (found->second.holdsText) {
    const bool isRight = IsText(ownType, node.text().get()) && !node.first_child().first_child();
    return isRight ? "" : ownType + " as " + node.text().get();
  }
  const std::string names = ChildNames(node);
  if (!std::regex_match(names, found->second.children)) return node.name() + (" with " + names);
  for (const pugi::xml_node& child : node) {
    fault = CheckElement(child, ownType);
    if (!fault.empty()) return fault;
  }
  return "";
}

std::string TAnswerRules::CheckAttributes(const pugi::xml_node& node,
                                          const TElement& element) const {
  for (const pugi::xml_attribute& attribute : node.attributes()) {
    const bool isRight = element.attributes.count(attribute.name()) == 1 &&
                         IsText(attribute.name(), attribute.value());
    if (!isRight) {
      return std::string(node.name()) + ' ' + attribute.name() + '=' + attribute.value();
    }
  }
  for (const auto& [name, isNeeded] : element.attributes) {
    if (isNeeded && !node.attribute(name.c_str())) return node.name() + (" without " + name);
  }
  return "";
}

bool TAnswerRules::IsText(const std::string& type, const std::string& text) const {
  const auto rule = texts_.find(type);
  return rule == texts_.end() || std::regex_match(text, rule->second);
}

}  // namespace NZELVYR20

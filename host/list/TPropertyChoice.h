#pragma once

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMClass.h"
#include "ListElements.h"

namespace NZELVYR20 {

/// Which properties of a list's instances are shown, and in which order.
class TPropertyChoice {
 public:
  using TPropertyPtr = boost::shared_ptr<ICIMProperty>;

  /// Those of that name, in any letter case, of the class or, with `deep`, of its subclasses; what
  /// none of them has is a TCommandError.
  static TPropertyChoice Name(ICIMClass& cimClass, bool deep,
                              const std::vector<std::string>& names);

  /// Those of which at least one instance has a value: keys first, then the others, each group by
  /// ascending name.
  static TPropertyChoice FindFilled(const TInstanceList& instances);

  /// As they are declared.
  const std::vector<std::string>& GetNames() const { return names_; }

  /// One for each name; empty where the instance has no such property.
  std::vector<TPropertyPtr> Read(ICIMInstance& instance) const;

 private:
  explicit TPropertyChoice(std::vector<std::string> names);

  std::vector<std::string> names_;
  std::unordered_map<std::string, std::size_t> places_;  ///< by folded name
};

}  // namespace NZELVYR20

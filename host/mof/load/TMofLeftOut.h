#pragma once

#include <string>
#include <unordered_map>

#include "TMofSummary.h"

namespace NZELVYR20 {

/// Thrown by what needs an element that was left out. Not an error of its own: it is counted.
struct TMofNeed {
  std::string root;  ///< the element of which an error was said
};

/// The elements that a batch lacks, by keys that differ for different elements: for one slip there
/// is one error, and what needs the element, directly or not, is counted under its name.
class TMofLeftOut {
 public:
  explicit TMofLeftOut(TMofSummary& summary) : summary_(summary) {}

  /// An error was said of the element.
  void Add(const std::string& key, const std::string& name) { roots_.emplace(key, name); }

  /// The element needs one that was left out, and is left out likewise.
  void Count(const std::string& key, const TMofNeed& need) {
    roots_.emplace(key, need.root);
    ++summary_.dependents[need.root];
  }

  bool Has(const std::string& key) const { return roots_.count(key) != 0; }
  /// Throws TMofNeed where the element was left out.
  void Require(const std::string& key) const {
    const auto found = roots_.find(key);
    if (found != roots_.end()) throw TMofNeed{found->second};
  }

 private:
  TMofSummary& summary_;
  std::unordered_map<std::string, std::string> roots_;
};

}  // namespace NZELVYR20

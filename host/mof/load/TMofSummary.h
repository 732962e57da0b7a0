#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// What a load came to.
struct TMofSummary {
  /// Of one kind of declaration.
  struct TCounts {
    std::size_t declared = 0;  ///< entered into the namespace
    std::size_t replaced = 0;  ///< entered in the place of another one
    std::size_t skipped = 0;   ///< there already, wrong as it stands in the text, or in need
    std::size_t refused = 0;   ///< by the repository
  };
  /// An element that the repository did not take.
  struct TRefusal {
    std::string name;
    std::string why;
  };

  std::size_t files = 0;
  TCounts qualifiers;
  TCounts classes;
  TCounts instances;
  std::vector<TRefusal> refusals;
  std::map<std::string, std::size_t> dependents;  ///< left out for need of an element, by its name
  std::size_t errors = 0;
  std::size_t warnings = 0;
  std::size_t notes = 0;

  /// Whether nothing was wrong and nothing refused.
  bool IsWhole() const { return errors == 0 && refusals.empty(); }

  /// One line that counts, then one for each reason with the names of those that it befell, then
  /// one for each element in whose need others were left out.
  std::string ToString() const;
};

}  // namespace NZELVYR20

#pragma once

#include <string>
#include <vector>

namespace NZELVYR20 {

/// What somebody may have meant who typed a name that is not known.
class TSuggestion {
 public:
  TSuggestion() = delete;

  /// The end of a message, such as "; did you mean CIM_Processor?", with the nearest of the known
  /// names; empty where none is near. Letter case does not count, nor does a schema's name that was
  /// left out.
  static std::string For(const std::string& given, const std::vector<std::string>& known);
  /// The nearest themselves, three at most.
  static std::vector<std::string> Nearest(const std::string& given,
                                          const std::vector<std::string>& known);
};

}  // namespace NZELVYR20

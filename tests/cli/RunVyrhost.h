#pragma once

#include <string>
#include <vector>

namespace NZELVYR20 {

/// What the program left behind.
struct TOutcome {
  int status = -1;  ///< its exit status, or minus the signal that ended it
  std::string output;
  std::string errors;
};

using TArgumentList = std::vector<std::string>;

/// Runs vyrhost to its end. Standard output goes to the given descriptor where there is one;
/// `output` is then empty.
TOutcome RunVyrhost(const TArgumentList& arguments, int outputDescriptor = -1);

}  // namespace NZELVYR20

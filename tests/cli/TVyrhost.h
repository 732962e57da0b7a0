#pragma once

#include <string>
#include <vector>

#include "TSampleTree.h"

namespace NZELVYR20 {

/// What came of a run.
struct TOutcome {
  int status = -1;  ///< its exit status; negative where it did not run to its end
  std::string output;
  std::string errors;
};

using TArgumentList = std::vector<std::string>;

/// The program and a small machine to show, as files in a temporary folder, which goes with this
/// object: the computer "box" with the operating system "Test", one processor of one core and the
/// network port "eth0".
class TVyrhost {
 public:
  TVyrhost();

  std::string GetRoot() const { return folder_.GetRoot() + "/root"; }
  /// Writes a file; `path` is relative to the root. Returns where it is.
  std::string Write(const std::string& path, const std::string& content) const;

  /// Runs the program, or a copy of it, to its end. `redirection` is the shell's word on where its
  /// standard output goes; `output` is then empty. No argument may hold a single quote.
  TOutcome Run(const TArgumentList& arguments, const std::string& redirection = "",
               const std::string& program = VYRHOST_PATH) const;

 private:
  TSampleTree folder_;
};

}  // namespace NZELVYR20

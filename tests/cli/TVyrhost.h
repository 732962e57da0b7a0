#pragma once

#include <string>
#include <utility>
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

/// Words, and what they stand for.
using TWords = std::vector<std::pair<const char*, std::string>>;

/// The path of the computer.
inline const std::string kBox =
    "CIM_ComputerSystem.CreationClassName=\"CIM_ComputerSystem\",Name=\"box\"";

std::vector<std::string> Lines(const std::string& text);
bool Contains(const std::string& text, const std::string& part);

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
  TOutcome Execute(const TArgumentList& arguments, const std::string& redirection = "",
                   const std::string& program = VYRHOST_PATH) const;

  /// Runs the cases of a file: each is a command, and what it prints, with the errors at the end;
  /// of that, after " | ", the lines with a text in them. Of what a failure says only that text is
  /// looked at, since libraries word some, and its status follows. Words with a "$" are long or
  /// cannot stand in a line; "$data" and "$box" are known.
  void CheckCommands(const std::string& file, TWords words = {}) const;

 private:
  TSampleTree folder_;
};

}  // namespace NZELVYR20

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "TInvocation.h"

namespace NZELVYR20 {

/// What may stand for the last word of a command line that is being typed, one a line; "-f" for
/// files, "-d" for folders, which the shell knows better. Commands and options are those of the
/// parser; what they take is told by its names for their values.
class TCompletion {
 public:
  /// `words` is the line after the program's name; the last one, which may be empty, is wanted.
  TCompletion(CLI::App& app, const std::vector<std::string>& words);

  /// Takes what a shell asks, `complete -- WORD...`, off the end of the program's arguments and
  /// returns the words; empty where a shell does not ask.
  static std::vector<std::string> TakeWords(std::vector<std::string>& arguments);

  /// Options of the program itself that stand among the words: what there is depends on them.
  const std::vector<std::string>& GetHostWords() const { return hostWords_; }
  ENeeds GetNeeds() const { return needs_; }
  const TCommand& GetCommand() const { return command_; }

 private:
  std::vector<std::string> hostWords_;
  ENeeds needs_;
  TCommand command_;
};

}  // namespace NZELVYR20

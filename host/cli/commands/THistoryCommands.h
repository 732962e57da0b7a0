#pragma once

#include <optional>
#include <string>

#include "TInvocation.h"

namespace NZELVYR20 {

/// What to compare, and how to show it.
struct TDiffArguments {
  std::string oldFile;
  std::string newFile;  ///< empty: what the repository holds
  bool withMomentary = false;
};

/// How to watch.
struct TWatchArguments {
  double seconds = 10;             ///< from one round to the next
  std::optional<unsigned> rounds;  ///< none: until somebody ends it
  bool withMomentary = false;
};

/// The commands that look back. What goes wrong is a TCommandError.
class THistoryCommands {
 public:
  THistoryCommands() = delete;

  /// Writes everything to a file in place of what is there, or for "-" to standard output.
  static int Snapshot(const TCommandContext& context, const std::string& file);

  /// 3 where there are differences.
  static int Diff(const TCommandContext& context, const TDiffArguments& arguments);

  /// Ends by itself after that many rounds, else by SIGINT or SIGTERM.
  static int Watch(const TCommandContext& context, const TWatchArguments& arguments);
};

}  // namespace NZELVYR20

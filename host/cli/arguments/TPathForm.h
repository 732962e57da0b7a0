#pragma once

#include <CLI/CLI.hpp>
#include <optional>

#include "TTerminal.h"

namespace NZELVYR20 {

/// In which form a command lists paths: short ones where a person reads them, full ones where a
/// program does, unless it is told.
class TPathForm {
 public:
  /// Adds the option to a command, to be parsed into this object, which must outlive it.
  void AddTo(CLI::App& command);

  bool IsShort(const TTerminal& terminal) const { return isShort_.value_or(terminal.isTerminal); }

 private:
  std::optional<bool> isShort_;
};

}  // namespace NZELVYR20

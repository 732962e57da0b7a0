#pragma once

#include <chrono>
#include <optional>
#include <string>

#include "TScopedLogger.h"

namespace NZELVYR20 {

/// One line that tells how far a long work is: on standard error, only where that is a terminal,
/// and only once the work has taken a while. It goes with this object, and before every message in
/// the log.
class TProgressLine {
 public:
  TProgressLine();
  TProgressLine(const TProgressLine&) = delete;
  TProgressLine& operator=(const TProgressLine&) = delete;
  ~TProgressLine();

  /// Whether a text would be read: not where there is no terminal, nor right after another one.
  bool IsDue() const;
  /// Puts a text in the place of the one before.
  void Show(const std::string& text);

  /// Takes the line away. To be called before anything else is written to standard error.
  void Clear();

 private:
  using TClock = std::chrono::steady_clock;

  const bool isTerminal_;
  bool isShown_ = false;
  TClock::time_point next_;
  std::optional<TScopedLogger> logger_;
};

}  // namespace NZELVYR20

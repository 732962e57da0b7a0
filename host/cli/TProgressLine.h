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

  /// Puts a text in the place of the one before, unless that is too fresh to be read.
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

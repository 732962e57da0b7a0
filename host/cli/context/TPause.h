#pragma once

#include <chrono>
#include <csignal>

#include "TDescriptor.h"

namespace NZELVYR20 {

/// Pauses between rounds of a work that goes on until somebody ends it. While the object lives
/// SIGINT and SIGTERM end nothing but a pause, so that a round is never cut short; where one is
/// ignored it stays so.
class TPause {
 public:
  using TClock = std::chrono::steady_clock;
  /// What ended a pause.
  enum class EEnd { kTime, kSignal, kNoReader };
  /// Whether standard output, where nobody reads it any more, ends one.
  enum class EReader { kMatters, kIgnored };

  TPause();
  TPause(const TPause&) = delete;
  TPause& operator=(const TPause&) = delete;
  ~TPause();

  /// Until that time, or a signal, or until nobody reads standard output any more.
  EEnd Until(TClock::time_point time, EReader reader = EReader::kMatters) const;

 private:
  sigset_t earlier_{};
  TDescriptor signals_;
};

}  // namespace NZELVYR20

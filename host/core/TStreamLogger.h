#pragma once

#include <atomic>
#include <mutex>
#include <ostream>
#include <string>

#include "ICoreLogger.h"

namespace NZELVYR20 {

/// The host's own logger: writes one line for each message within the threshold to a stream,
/// which must outlive it. It never throws; what cannot be written is lost.
class TStreamLogger : public ICoreLogger {
 public:
  static constexpr int kDefaultThreshold = 3;

  explicit TStreamLogger(std::ostream& stream) noexcept;

  /// The highest level to be written; a negative one silences the logger.
  void SetThreshold(int level) noexcept;

  /// Writes "vyr[LEVEL] MESSAGE". A line end inside the message becomes a space.
  void Log(int level, const std::string& message) noexcept override;

 private:
  std::mutex mutex_;
  std::ostream& stream_;
  std::atomic<int> threshold_{kDefaultThreshold};
};

}  // namespace NZELVYR20

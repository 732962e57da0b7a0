#include "TStreamLogger.h"

#include <algorithm>
#include <exception>

namespace NZELVYR20 {

TStreamLogger::TStreamLogger(std::ostream& stream) noexcept : stream_(stream) {}

void TStreamLogger::SetThreshold(int level) noexcept { threshold_ = level; }

void TStreamLogger::Log(int level, const std::string& message) noexcept {
  if (level > threshold_ || threshold_ < 0) return;
  try {
    std::string line = "vyr[" + std::to_string(level) + "] " + message;
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    line += '\n';
    const std::lock_guard<std::mutex> lock(mutex_);
    stream_ << line << std::flush;
  } catch (const std::exception&) {
    // Nobody is left to be told: an operation must not fail because its message did.
    return;
  }
}

}  // namespace NZELVYR20

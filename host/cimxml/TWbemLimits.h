#pragma once

#include <chrono>
#include <cstddef>
#include <functional>

namespace NZELVYR20 {

/// What bounds a service, and the clock that its time-outs go by.
struct TWbemLimits {
  std::size_t openEnumerations = 100;
  std::chrono::seconds enumerationTimeout{60};  ///< unless the client asks for another
  std::chrono::seconds longestTimeout{600};     ///< that a client may ask for
  std::size_t instancesInPiece = 10000;         ///< of an enumeration, whatever a client asks for
  std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
};

}  // namespace NZELVYR20

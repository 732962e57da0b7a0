#pragma once

#include <chrono>
#include <cstddef>

namespace NZELVYR20 {

/// What bounds a service.
struct TWbemLimits {
  std::size_t openEnumerations = 100;
  std::chrono::seconds enumerationTimeout{60};  ///< unless the client asks for another
  std::chrono::seconds longestTimeout{600};     ///< that a client may ask for
};

}  // namespace NZELVYR20

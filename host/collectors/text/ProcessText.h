#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What /proc/N/stat tells. Times are in ticks of the kernel's clock, memory in its pages.
struct TProcessFacts {
  std::string name;
  std::uint16_t state = 0;  ///< the standard's ExecutionState
  std::string parent;
  std::uint64_t group = 0;
  std::uint64_t session = 0;
  std::uint64_t userTime = 0;
  std::uint64_t kernelTime = 0;
  std::uint32_t priority = 0;  ///< 0 for the first to run, 139 for the last
  std::uint64_t startTime = 0;
  std::uint64_t residentPages = 0;
};

/// The name stands in brackets, and may have any in itself.
std::optional<TProcessFacts> ParseProcess(std::string_view text);

}  // namespace NZELVYR20

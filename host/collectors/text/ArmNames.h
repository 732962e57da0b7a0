#pragma once

#include <cstdint>
#include <string_view>

namespace NZELVYR20 {

/// Who made a processor of the ARM architecture, by the number in /proc/cpuinfo; empty for a number
/// that is not known.
std::string_view FindArmImplementer(std::uint64_t implementer);

/// What the implementer calls its design; empty for one that is not known.
std::string_view FindArmPart(std::uint64_t implementer, std::uint64_t part);

}  // namespace NZELVYR20

#pragma once

#include <cstdint>

namespace NZELVYR20 {

/// Whether a terminal shows the character of that code instead of obeying it, as it does control
/// characters of both ranges, line separators, and what turns the direction of writing. A code that
/// is no character's is not shown.
bool IsShown(std::uint32_t code) noexcept;

}  // namespace NZELVYR20

#pragma once

#include <cstdint>
#include <optional>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The number that a value of one of the unsigned types holds; none for any other type.
std::optional<std::uint64_t> ReadUnsigned(const TCIMValue& value);

}  // namespace NZELVYR20

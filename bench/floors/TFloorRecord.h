#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <variant>

namespace NZELVYR20 {

/// What a property may hold.
using TFloorValue =
    std::variant<std::monostate, bool, std::uint16_t, std::uint64_t, double, std::string>;

/// A record whose values are shared and found by name.
using TFloorRecord = std::map<std::string, std::shared_ptr<TFloorValue>>;

}  // namespace NZELVYR20

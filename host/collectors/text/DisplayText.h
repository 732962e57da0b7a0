#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What a display says of itself.
struct TDisplayFacts {
  std::string maker;    ///< three letters that stand for it
  std::string product;  ///< its number, from the maker
  std::string name;
  std::string serialNumber;
  std::string year;                    ///< of making, or of the model
  std::optional<std::uint32_t> width;  ///< in points, of the picture that suits it best
  std::optional<std::uint32_t> height;
};

/// By the first block of its EDID; nothing where that is short, or damaged.
std::optional<TDisplayFacts> ParseDisplay(std::string_view edid);

/// Whether a name in /sys/class/drm is that of a controller, such as "card0".
bool IsDisplayController(std::string_view name);

/// Whether a connector, such as "eDP-1", is one for displays that are built in.
bool IsForBuiltInDisplay(std::string_view connector);

}  // namespace NZELVYR20

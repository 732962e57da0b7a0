#pragma once

#include <cstdint>
#include <string_view>

namespace NZELVYR20 {

/// The name of a qualifier that decides how a value is shown: as a declaration of the host's own is
/// asked for it, and normalized; and the bit that marks it among them.
struct TDisplayQualifier {
  const char* name;
  std::string_view key;
  std::uint8_t bit;
};

namespace DisplayQualifier {
constexpr TDisplayQualifier kValues{"Values", "values", 1};
constexpr TDisplayQualifier kValueMap{"ValueMap", "valuemap", 2};
constexpr TDisplayQualifier kBase{"BASE", "base", 4};
constexpr TDisplayQualifier kNullDisplay{"NULLDISPLAY", "nulldisplay", 8};
constexpr TDisplayQualifier kUnits{"UNITS", "units", 16};
constexpr TDisplayQualifier kFixedUnits{"DISPLAYFIXEDUNITS", "displayfixedunits", 32};
constexpr TDisplayQualifier kAbbreviate{"ABBREVIATEUNITS", "abbreviateunits", 64};
constexpr TDisplayQualifier kCpuTime{"DISPLAYCPUTIME", "displaycputime", 128};
}  // namespace DisplayQualifier

}  // namespace NZELVYR20

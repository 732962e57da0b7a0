#pragma once

#include <string_view>

namespace NZELVYR20 {

/// The name of a qualifier that decides how a value is shown: as a declaration of the host's own is
/// asked for it, and normalized.
struct TDisplayQualifier {
  const char* name;
  std::string_view key;
};

namespace DisplayQualifier {
constexpr TDisplayQualifier kValues{"Values", "values"};
constexpr TDisplayQualifier kValueMap{"ValueMap", "valuemap"};
constexpr TDisplayQualifier kBase{"BASE", "base"};
constexpr TDisplayQualifier kNullDisplay{"NULLDISPLAY", "nulldisplay"};
constexpr TDisplayQualifier kUnits{"UNITS", "units"};
constexpr TDisplayQualifier kFixedUnits{"DISPLAYFIXEDUNITS", "displayfixedunits"};
constexpr TDisplayQualifier kAbbreviate{"ABBREVIATEUNITS", "abbreviateunits"};
constexpr TDisplayQualifier kCpuTime{"DISPLAYCPUTIME", "displaycputime"};
}  // namespace DisplayQualifier

}  // namespace NZELVYR20

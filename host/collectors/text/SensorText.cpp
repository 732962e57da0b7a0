#include "SensorText.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kDigits = "0123456789";

struct TKindRow {
  std::string_view prefix;
  TSensorKind kind;
};

const std::array<TKindRow, 6>& ListKinds() {
  static const std::array<TKindRow, 6> kinds = {{{"temp", {2, "", 2, -3, "degrees C", 1}},
                                                 {"in", {3, "", 5, -3, "Volts", 1}},
                                                 {"curr", {4, "", 6, -3, "Amps", 1}},
                                                 {"fan", {5, "", 19, 0, "RPM", 1}},
                                                 {"humidity", {9, "", 65, -3, "Percent", 1}},
                                                 {"power", {13, "", 7, -3, "Watts", 1000}}}};
  return kinds;
}

template <std::size_t size>
std::optional<std::uint16_t> FindCode(
    const std::array<std::pair<std::string_view, std::uint16_t>, size>& rows,
    std::string_view name) {
  const auto* found =
      std::find_if(rows.begin(), rows.end(), [name](const auto& row) { return row.first == name; });
  return found == rows.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace

std::optional<TSensorKind> FindSensorKind(std::string_view fileName) {
  const std::size_t number = fileName.find_first_of(kDigits);
  if (number == std::string_view::npos) return std::nullopt;
  const std::string_view rest = fileName.substr(number);
  if (rest.substr(std::min(rest.find_first_not_of(kDigits), rest.size())) != "_input") return {};
  for (const TKindRow& row : ListKinds()) {
    if (row.prefix == fileName.substr(0, number)) return row.kind;
  }
  return std::nullopt;
}

std::optional<std::int32_t> ParseReading(std::string_view text, std::int32_t divisor) {
  constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max());
  const bool isNegative = text.substr(0, 1) == "-";
  std::optional<std::uint64_t> size = ParseUnsigned(isNegative ? text.substr(1) : text);
  if (!size) return std::nullopt;
  *size /= static_cast<std::uint64_t>(divisor);
  if (*size > kMost) return std::nullopt;
  const auto reading = static_cast<std::int32_t>(*size);
  return isNegative ? -reading : reading;
}

std::string DescribeReading(std::int32_t reading, const TSensorKind& kind) {
  std::string text = std::to_string(std::abs(std::int64_t{reading}));
  const auto decimals = static_cast<std::size_t>(-kind.unitModifier);
  if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
  if (decimals > 0) {
    text.insert(text.size() - decimals, ".");
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  return (reading < 0 ? "-" : "") + text + ' ' + kind.unit;
}

std::uint16_t ParseBatteryStatus(std::string_view text, std::optional<std::uint16_t> percent) {
  constexpr std::uint16_t kUnknown = 2;
  constexpr std::uint16_t kLow = 4;
  constexpr std::uint16_t kLowPercent = 10;
  static constexpr std::array<std::pair<std::string_view, std::uint16_t>, 4> kStates = {
      {{"Full", 3}, {"Charging", 6}, {"Discharging", 11}, {"Not charging", 11}}};
  const std::optional<std::uint16_t> status = FindCode(kStates, text);
  if (text == "Discharging" && percent && *percent <= kLowPercent) return kLow;
  return status.value_or(kUnknown);
}

std::uint16_t ParseChemistry(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, std::uint16_t>, 8> kChemistries = {
      {{"", 2},
       {"Unknown", 2},
       {"PbAc", 3},
       {"NiCd", 4},
       {"NiMH", 5},
       {"Li-ion", 6},
       {"LiFe", 6},
       {"Li-poly", 8}}};
  return FindCode(kChemistries, text).value_or(1);
}

}  // namespace NZELVYR20

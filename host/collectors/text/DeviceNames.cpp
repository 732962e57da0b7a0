#include "DeviceNames.h"

#include <optional>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

/// "8139  AT-2500TX V3 Ethernet".
struct TIdLine {
  std::uint16_t number = 0;
  std::string_view name;
};

std::optional<TIdLine> ParseIdLine(std::string_view line) {
  const std::optional<TField> field = SplitField(line, ' ');
  if (!field) return std::nullopt;
  const std::optional<std::uint64_t> number = ParseUnsigned(field->name, kHexadecimal);
  if (!number || *number > UINT16_MAX) return std::nullopt;
  return TIdLine{static_cast<std::uint16_t>(*number), field->value};
}

}  // namespace

std::map<TDeviceNumbers, TDeviceNames> FindDeviceNames(std::string_view list,
                                                       const std::set<TDeviceNumbers>& wanted) {
  std::map<TDeviceNumbers, TDeviceNames> names;
  for (const TDeviceNumbers& numbers : wanted) names[numbers];
  // Makers stand at the margin, their devices after a tab, and the cards that have these after two.
  std::optional<TIdLine> vendor;
  auto next = names.end();
  for (const std::string_view line : SplitLines(list)) {
    if (line.empty() || line.front() == '#' || line.substr(0, 2) == "\t\t") continue;
    // The classes of devices come last.
    if (line.front() == 'C') break;
    const bool isVendor = line.front() != '\t';
    // Most makers have nothing here: of their devices nothing is read.
    if (!isVendor && next == names.end()) continue;
    const std::optional<TIdLine> parsed = ParseIdLine(line.substr(isVendor ? 0 : 1));
    if (!parsed) continue;
    if (isVendor) {
      vendor = parsed;
      next = names.lower_bound({vendor->number, 0});
      if (next != names.end() && next->first.first != vendor->number) next = names.end();
      for (auto each = next; each != names.end() && each->first.first == vendor->number; ++each) {
        each->second.vendor = vendor->name;
      }
    } else if (const auto found = names.find({vendor->number, parsed->number});
               found != names.end()) {
      found->second.device = parsed->name;
    }
  }
  return names;
}

}  // namespace NZELVYR20

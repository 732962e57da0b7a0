#include "PciText.h"

#include <algorithm>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr int kHexadecimal = 16;

std::optional<std::uint8_t> ParseByte(std::string_view text) {
  const std::optional<std::uint64_t> number = ParseUnsigned(text, kHexadecimal);
  if (!number || *number > UINT8_MAX) return std::nullopt;
  return static_cast<std::uint8_t>(*number);
}

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

std::optional<TPciAddress> ParsePciAddress(std::string_view name) {
  const std::optional<TField> domain = SplitField(name, ':');
  const std::optional<TField> bus = domain ? SplitField(domain->value, ':') : std::nullopt;
  const std::optional<TField> slot = bus ? SplitField(bus->value, '.') : std::nullopt;
  if (!slot) return std::nullopt;
  const auto busNumber = ParseByte(bus->name);
  const auto deviceNumber = ParseByte(slot->name);
  const auto functionNumber = ParseByte(slot->value);
  if (!busNumber || !deviceNumber || !functionNumber) return std::nullopt;
  return TPciAddress{*busNumber, *deviceNumber, *functionNumber};
}

std::optional<std::uint64_t> ParsePciNumber(std::string_view text, unsigned bits) {
  const std::string_view trimmed = Trim(text);
  if (trimmed.substr(0, 2) != "0x") return std::nullopt;
  const std::optional<std::uint64_t> number = ParseUnsigned(trimmed.substr(2), kHexadecimal);
  return number && *number >> bits == 0 ? number : std::nullopt;
}

std::string FindPciFunction(std::string_view link) {
  std::string found;
  while (!link.empty()) {
    const std::string_view part = link.substr(0, link.find('/'));
    if (ParsePciAddress(part)) found = part;
    link.remove_prefix(std::min(part.size() + 1, link.size()));
  }
  return found;
}

std::map<TPciNumbers, TPciNames> FindPciNames(std::string_view list,
                                              const std::set<TPciNumbers>& wanted) {
  std::map<TPciNumbers, TPciNames> names;
  for (const TPciNumbers& numbers : wanted) names[numbers];
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

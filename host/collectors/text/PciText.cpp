#include "PciText.h"

#include <algorithm>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

std::optional<std::uint8_t> ParseByte(std::string_view text) {
  const std::optional<std::uint64_t> number = ParseUnsigned(text, kHexadecimal);
  if (!number || *number > UINT8_MAX) return std::nullopt;
  return static_cast<std::uint8_t>(*number);
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

}  // namespace NZELVYR20

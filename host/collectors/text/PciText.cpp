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

namespace {

/// The last part of the way that is one of those looked for; empty where none is.
template <class TIsWanted>
std::string_view FindPart(std::string_view link, TIsWanted isWanted) {
  std::string_view found;
  while (!link.empty()) {
    const std::string_view part = link.substr(0, link.find('/'));
    if (isWanted(part)) found = part;
    link.remove_prefix(std::min(part.size() + 1, link.size()));
  }
  return found;
}

}  // namespace

std::string FindPciFunction(std::string_view link) {
  return std::string(
      FindPart(link, [](std::string_view part) { return ParsePciAddress(part).has_value(); }));
}

std::string FindUsbPort(std::string_view link) {
  // After the port stands which of the device's functions it is.
  const std::string_view part = FindPart(link, [](std::string_view name) {
    return name.find('-') < name.find(':') && name.find(':') != std::string_view::npos;
  });
  return std::string(part.substr(0, part.find(':')));
}

}  // namespace NZELVYR20

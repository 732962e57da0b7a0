#include "NetworkText.h"

#include <algorithm>
#include <array>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::uint64_t kAdministrativelyUp = 1;  ///< of the port's flags

struct TLinkRow {
  std::string_view type;
  std::uint16_t technology;
  std::string_view other;
};

constexpr std::array<TLinkRow, 14> kLinks = {{{"1", 2, ""},
                                              {"32", 3, ""},
                                              {"512", 1, "Point-to-Point"},
                                              {"768", 1, "IPv4 Tunnel"},
                                              {"769", 1, "IPv6 Tunnel"},
                                              {"772", 1, "Loopback"},
                                              {"774", 5, ""},
                                              {"776", 1, "IPv6 in IPv4 Tunnel"},
                                              {"778", 1, "GRE Tunnel"},
                                              {"823", 1, "GRE over IPv6 Tunnel"},
                                              {"801", 11, ""},
                                              {"802", 11, ""},
                                              {"803", 11, ""},
                                              {"65534", 1, "Without Link Layer"}}};

struct TStateRow {
  std::string_view name;
  TPortState whenUp;
};

constexpr std::array<TStateRow, 6> kStates = {{{"up", {2, 2}},
                                               {"down", {10, 6}},
                                               {"dormant", {15, 2}},
                                               {"testing", {11, 7}},
                                               {"notpresent", {12, 6}},
                                               {"lowerlayerdown", {16, 6}}}};

std::optional<std::uint64_t> ParseFlags(std::string_view text) {
  if (text.substr(0, 2) == "0x") text.remove_prefix(2);
  return ParseUnsigned(text, 16);
}

/// "-56." as 56: what has no sign is no such level, and -256 stands for one that is not known.
std::optional<std::uint32_t> ParseDecibels(std::string_view text) {
  constexpr std::uint32_t kLargest = 255;
  if (text.substr(0, 1) != "-") return std::nullopt;
  text.remove_prefix(1);
  const auto number = ParseNumber<std::uint32_t>(text.substr(0, text.find('.')));
  return number && *number <= kLargest ? number : std::nullopt;
}

}  // namespace

TLinkKind ParseLinkKind(std::string_view type) {
  for (const TLinkRow& row : kLinks) {
    if (row.type == type) return {row.technology, std::string(row.other)};
  }
  return {};
}

std::string ParseDeviceType(std::string_view text) {
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> field = SplitField(line, '=');
    if (field && field->name == "DEVTYPE") return std::string(field->value);
  }
  return {};
}

std::optional<std::uint64_t> ParsePortSpeed(std::string_view text) {
  // "-1" is no number here; older drivers write it as an unsigned number of 16 or 32 bits.
  const std::uint64_t megabits = ParseUnsigned(text).value_or(0);
  if (megabits == 0 || megabits == 0xFFFF || megabits == 0xFFFFFFFF) return std::nullopt;
  return Multiply(megabits, 1000000);
}

std::optional<bool> ParseFullDuplex(std::string_view text) {
  if (text == "full") return true;
  if (text == "half") return false;
  return std::nullopt;
}

std::string ParseHardwareAddress(std::string_view text) {
  std::string digits;
  for (const char character : Trim(text)) {
    if (character == ':') continue;
    const bool isLower = character >= 'a' && character <= 'f';
    digits += isLower ? static_cast<char>(character - 'a' + 'A') : character;
  }
  const bool isAddress = digits.find_first_not_of("0123456789ABCDEF") == std::string::npos &&
                         digits.find_first_not_of('0') != std::string::npos;
  return isAddress && digits.size() % 2 == 0 ? digits : std::string();
}

TPortState ParsePortState(std::string_view operationalState, std::string_view flags) {
  TPortState state;
  for (const TStateRow& row : kStates) {
    if (row.name == operationalState) state = row.whenUp;
  }
  const std::optional<std::uint64_t> bits = ParseFlags(flags);
  if (!bits) {
    state.enabledState = 0;
  } else if ((*bits & kAdministrativelyUp) == 0) {
    state.enabledState = 3;
  } else if (operationalState == "unknown") {
    state.enabledState = 2;
  }
  return state;
}

std::map<std::string, TPortCounts> ParsePortCounts(std::string_view text) {
  constexpr std::size_t kColumns = 16;
  std::map<std::string, TPortCounts> counts;
  for (const std::string_view line : SplitLines(text)) {
    // Further addresses of old kinds have a colon in their names.
    const std::size_t colon = line.rfind(':');
    if (colon == std::string_view::npos) continue;
    std::vector<std::uint64_t> numbers;
    for (const std::string_view word : SplitWords(line.substr(colon + 1))) {
      if (const auto number = ParseUnsigned(word)) numbers.push_back(*number);
    }
    if (numbers.size() < kColumns) continue;
    counts[std::string(Trim(line.substr(0, colon)))] = {numbers[0],  numbers[1], numbers[2],
                                                        numbers[5],  numbers[8], numbers[9],
                                                        numbers[10], numbers[14]};
  }
  return counts;
}

std::map<std::string, std::string> ParseVirtualNetworks(std::string_view text) {
  std::map<std::string, std::string> numbers;
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> name = SplitField(line, '|');
    const std::optional<TField> number = name ? SplitField(name->value, '|') : std::nullopt;
    if (number && ParseUnsigned(number->name)) numbers.emplace(name->name, number->name);
  }
  return numbers;
}

std::map<std::string, TRadioSignal> ParseRadioSignals(std::string_view text) {
  constexpr std::size_t kColumns = 4;
  std::map<std::string, TRadioSignal> signals;
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> port = SplitField(line, ':');
    const auto words = port ? SplitWords(port->value) : std::vector<std::string_view>();
    if (words.size() < kColumns) continue;
    signals[std::string(port->name)] = {std::string(words[1].substr(0, words[1].find('.'))),
                                        ParseDecibels(words[2]), ParseDecibels(words[3])};
  }
  return signals;
}

}  // namespace NZELVYR20

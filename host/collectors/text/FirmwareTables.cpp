#include "FirmwareTables.h"

#include <algorithm>
#include <array>
#include <utility>

#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kHeaderLength = 4;
constexpr std::uint8_t kMemoryDevice = 17;
constexpr std::uint8_t kEndOfTables = 127;

/// One table: numbers at fixed places, least byte first, and then texts, which the numbers count
/// from 1.
struct TTable {
  std::uint8_t type = 0;
  std::string_view numbers;
  std::string_view texts;

  std::optional<std::uint64_t> Get(std::size_t place, std::size_t length) const {
    if (place + length > numbers.size()) return std::nullopt;
    std::uint64_t value = 0;
    for (std::size_t i = length; i-- > 0;) {
      value = value << 8U | static_cast<unsigned char>(numbers[place + i]);
    }
    return value;
  }

  std::string GetText(std::size_t place) const {
    std::uint64_t number = Get(place, 1).value_or(0);
    if (number == 0) return {};
    std::string_view rest = texts;
    for (; number > 1; --number) rest.remove_prefix(std::min(rest.find('\0'), rest.size() - 1) + 1);
    return CleanFirmwareText(std::string(Trim(rest.substr(0, rest.find('\0')))));
  }
};

/// Takes the first table off; nothing where it is not whole.
std::optional<TTable> TakeTable(std::string_view& tables) {
  if (tables.size() < kHeaderLength) return std::nullopt;
  const std::size_t length = static_cast<unsigned char>(tables[1]);
  const std::size_t end = tables.find(std::string_view("\0\0", 2), length);
  if (length < kHeaderLength || end == std::string_view::npos) return std::nullopt;
  // The texts end in an empty one, which shares its byte with the end of the last.
  const TTable table{static_cast<std::uint8_t>(tables[0]), tables.substr(0, length),
                     tables.substr(length, end + 2 - length)};
  tables.remove_prefix(end + 2);
  return table;
}

/// Where the standard's number stands for each of firmware's; 1, "other", where it has none.
template <std::size_t size>
std::uint16_t Translate(const std::array<std::uint8_t, size>& numbers,
                        std::optional<std::uint64_t> given) {
  if (!given || *given == 0) return 0;
  return *given < size ? numbers[static_cast<std::size_t>(*given)] : 1;
}

constexpr std::array<std::uint8_t, 17> kFormFactors = {0, 1, 0, 7,  2,  1,  3, 4, 6,
                                                       8, 9, 1, 11, 12, 13, 8, 1};
constexpr std::array<std::uint8_t, 31> kMemoryTypes = {0,  1,  0,  2,  6,  7,  8,  9,  10, 11, 12,
                                                       13, 14, 15, 16, 17, 18, 19, 20, 21, 23, 1,
                                                       1,  1,  24, 25, 26, 27, 28, 29, 30};

/// What firmware numbers and the standard does not.
std::string NameOtherType(std::uint64_t number) {
  static constexpr std::array<std::pair<std::uint8_t, const char*>, 6> kNames = {
      {{31, "Logical non-volatile device"},
       {32, "HBM"},
       {33, "HBM2"},
       {34, "DDR5"},
       {35, "LPDDR5"},
       {36, "HBM3"}}};
  const auto* found = std::find_if(kNames.begin(), kNames.end(),
                                   [number](const auto& name) { return name.first == number; });
  return found == kNames.end() ? "Firmware's number " + std::to_string(number) : found->second;
}

/// A number of 16 bits of which all ones say that another place has it, or that it is not known.
template <class TNumber>
std::optional<TNumber> GetNumber(const TTable& table, std::size_t place,
                                 std::size_t widerPlace = SIZE_MAX - sizeof(std::uint32_t)) {
  std::optional<std::uint64_t> number = table.Get(place, 2);
  if (number == UINT16_MAX) number = table.Get(widerPlace, sizeof(std::uint32_t));
  if (!number || *number == 0 || *number > std::numeric_limits<TNumber>::max()) return {};
  return static_cast<TNumber>(*number);
}

/// Nothing for an empty socket.
std::optional<TMemoryModule> ReadModule(const TTable& table) {
  constexpr std::uint64_t kEmpty = 0;
  constexpr std::uint64_t kUnknown = 0xFFFF;
  constexpr std::uint64_t kWider = 0x7FFF;
  constexpr std::uint64_t kInKibibytes = 0x8000;
  constexpr std::uint64_t kKibibyte = 1024;
  const std::uint64_t size = table.Get(0x0C, 2).value_or(kEmpty);
  if (size == kEmpty) return std::nullopt;
  TMemoryModule module;
  if (size == kWider) {
    module.capacity = Multiply(table.Get(0x1C, 4), kKibibyte * kKibibyte);
  } else if (size != kUnknown) {
    module.capacity = (size & kWider) * ((size & kInKibibytes) != 0 ? 1 : kKibibyte) * kKibibyte;
  }
  module.totalWidth = GetNumber<std::uint16_t>(table, 0x08);
  module.dataWidth = GetNumber<std::uint16_t>(table, 0x0A);
  module.formFactor = Translate(kFormFactors, table.Get(0x0E, 1));
  module.locator = table.GetText(0x10);
  module.bank = table.GetText(0x11);
  const std::optional<std::uint64_t> type = table.Get(0x12, 1);
  module.memoryType = Translate(kMemoryTypes, type);
  if (type && *type >= kMemoryTypes.size()) module.otherType = NameOtherType(*type);
  module.highestSpeed = GetNumber<std::uint32_t>(table, 0x15, 0x54);
  module.manufacturer = table.GetText(0x17);
  module.serialNumber = table.GetText(0x18);
  module.partNumber = table.GetText(0x1A);
  module.presentSpeed = GetNumber<std::uint32_t>(table, 0x20, 0x58);
  return module;
}

}  // namespace

std::vector<std::optional<TMemoryModule>> ParseMemoryModules(std::string_view tables) {
  std::vector<std::optional<TMemoryModule>> modules;
  for (auto table = TakeTable(tables); table && table->type != kEndOfTables;
       table = TakeTable(tables)) {
    if (table->type == kMemoryDevice) modules.push_back(ReadModule(*table));
  }
  return modules;
}

}  // namespace NZELVYR20

#include <gtest/gtest.h>
#include <utmpx.h>

#include <boost/algorithm/string.hpp>
#include <functional>
#include <map>
#include <optional>
#include <sstream>

#include "AddressText.h"
#include "BlockDeviceText.h"
#include "Cases.h"
#include "HostKindText.h"
#include "MountText.h"
#include "NetworkText.h"
#include "PciText.h"
#include "ProcessorFlags.h"
#include "ProcessorText.h"
#include "SensorText.h"
#include "ServiceText.h"
#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

using TTexts = std::vector<std::string>;

template <class TValue>
std::string Show(const TValue& value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

/// "-" for nothing.
template <class TValue>
std::string Show(const std::optional<TValue>& value) {
  return value ? Show(*value) : "-";
}

/// Values with a blank between each and the next.
template <class... TValues>
std::string Row(const TValues&... values) {
  std::string row;
  ((row += (row.empty() ? "" : " ") + Show(values)), ...);
  return row;
}

/// For each: number, vendor, model and stepping; package, core, MHz and bits; family.
std::string ShowProcessors(const std::string& text) {
  TTexts rows;
  auto [processors, shared] = ParseProcessors(text);
  if (processors.empty()) processors.push_back(shared);
  for (const TLogicalProcessor& cpu : processors) {
    rows.push_back(Row(cpu.index, cpu.vendor + ',' + cpu.modelName + ',' + cpu.stepping,
                       cpu.package, cpu.core, cpu.megaHertz, cpu.addressBits,
                       FindProcessorFamily(cpu)));
  }
  return boost::join(rows, "\n");
}

std::string ShowMounts(const std::string& text) {
  TTexts rows;
  for (const TMount& mount : ParseMounts(text)) {
    rows.push_back(boost::join(TTexts{mount.source, mount.mountPoint, mount.type,
                                      mount.isReadOnly ? "ro" : "rw", mount.subvolume},
                               "|"));
  }
  return boost::join(rows, "\n");
}

std::string ShowSelected(const std::string& mounts, const std::string& types) {
  TTexts places;
  for (const TFileSystemFacts& facts :
       SelectFileSystems(ParseMounts(mounts), ParseTypesWithoutDevice(types))) {
    places.push_back(facts.mount.mountPoint + (facts.mayHang ? "?" : ""));
  }
  return boost::join(places, " ");
}

std::string ShowList(const std::string& text) {
  const std::vector<std::uint32_t> numbers = ParseList(text);
  return Row(numbers.size(), numbers.empty() ? 0 : numbers.back());
}

std::string ShowTime(const std::string& seconds) {
  const auto time = ToTimeStamp(std::stoull(seconds));
  return time ? time->ToCIMString() : "-";
}

std::string ShowChassis(const std::string& text) {
  const auto form = ParseChassisForm(text);
  return form ? Row(form->type, form->other) : "-";
}

using TParser = std::function<std::string(const TTexts& given)>;

template <class TParse>
TParser One(TParse parse) {
  return [parse](const TTexts& given) { return Row(parse(given[0])); };
}

/// By the word before the colon in a case's first line. A parser is given what follows that line,
/// in the parts between "|".
const std::map<std::string, TParser> kParsers = {
    {"number", One([](const std::string& text) { return ParseUnsigned(text); })},
    {"number of 16 bits", One(ParseNumber<std::uint16_t>)},
    {"processors", One(ShowProcessors)},
    {"cache size", One(ParseCacheSize)},
    {"cache level", One(ParseCacheLevel)},
    {"cache type", One(ParseCacheType)},
    {"cache ways", One(ParseAssociativity)},
    {"list", One(ShowList)},
    {"pretty name", One([](const std::string& text) { return ParseRelease(text).prettyName; })},
    {"name", One([](const std::string& text) { return ParseRelease(text).name; })},
    {"memory", One([](const std::string& text) { return ParseMemory(text).total; })},
    {"free swap", One([](const std::string& text) { return ParseMemory(text).swapFree; })},
    {"start", One(ParseBootTime)},
    {"uptime", One(ParseUptime)},
    {"time", One(ShowTime)},
    {"chassis", One(ShowChassis)},
    {"speed", One(ParsePortSpeed)},
    {"link", One([](const std::string& text) { return ParseLinkKind(text).technology; })},
    {"full duplex", One(ParseFullDuplex)},
    {"address", One(ParseHardwareAddress)},
    {"port",
     [](const TTexts& given) {
       const TPortState state = ParsePortState(given[0], given[1]);
       return Row(state.operationalStatus, state.enabledState);
     }},
    {"extent",
     [](const TTexts& given) {
       const auto size = ParseExtentSize(given[0], given[1]);
       return size ? Row(size->blocks, size->blockSize) : "-";
     }},
    {"array",
     [](const TTexts& given) {
       const TArrayState state = ParseArrayState(given[0], given[1], given[2], given[3]);
       return Row(state.operationalStatus, state.healthState, state.description);
     }},
    {"size", One([](const std::string& text) { return DescribeSize(std::stoull(text)); })},
    {"device file", One(GetDeviceFile)},
    {"drive",
     [](const TTexts& given) {
       return FindDriveClass(given[0], given[1], ParseDvdDrives(given[2]));
     }},
    {"member", [](const TTexts& given) { return Row(ParseMemberState(given[0], given[1])); }},
    {"path to a disk", One(FindDiskOfPath)},
    {"life time", One(DescribeLifeTime)},
    {"mapper", One(ParseMapperKind)},
    {"swaps", One([](const std::string& text) { return boost::join(ParseSwaps(text), " "); })},
    {"bus", One(FindBus)},
    {"PCI function", One(FindPciFunction)},
    {"port on USB", One(FindUsbPort)},
    {"reading",
     [](const TTexts& given) {
       const auto kind = FindSensorKind(given[0]);
       const auto reading = kind ? ParseReading(given[1], kind->divisor) : std::nullopt;
       return reading ? DescribeReading(*reading, *kind) : "-";
     }},
    {"battery",
     [](const TTexts& given) {
       return Row(ParseBatteryStatus(given[0], ParseNumber<std::uint16_t>(given[1])));
     }},
    {"host kind",
     [](const TTexts& given) {
       return DescribeHostKind({given[0], given[1], given[2], given[3], given[4] == "yes"});
     }},
    {"firmware date", One([](const std::string& text) {
       const auto date = ParseFirmwareDate(text);
       return date ? date->ToCIMString() : "-";
     })},
    {"load", [](const TTexts& given) { return Row(ParseLoadPercentage(given[0], 2)); }},
    {"users",
     [](const TTexts& given) {
       std::string records;
       for (const std::string& type : given) {
         utmpx record = {};
         record.ut_type = static_cast<short>(std::stoi(type));
         records.append(reinterpret_cast<const char*>(&record), sizeof record);
       }
       return Row(CountUsers(records), CountUsers(records + "x"));
     }},
    {"address type", One(FindAddressType6)},
    {"radio", One([](const std::string& text) {
       std::string shown;
       for (const auto& [port, signal] : ParseRadioSignals(text)) {
         shown += Row(port, signal.quality, signal.level, signal.noise);
       }
       return shown;
     })},
    {"extensions", One(ListExtensions)},
    {"characteristics", One([](const std::string& text) {
       std::string shown;
       for (const unsigned code : FindCharacteristics(text)) shown += std::to_string(code) + ' ';
       return shown;
     })},
    {"unit", One([](const std::string& text) {
       const TUnitFacts facts = ParseUnit(text);
       return facts.description + (facts.canBeEnabled ? "|can be enabled" : "|fixed");
     })},
    {"unit text", [](const TTexts& given) { return FillUnitText(given[0], given[1]); }},
    {"unit template", One([](const std::string& text) {
       return IsUnitTemplate(text) ? "template" : FindUnitTemplate(text);
     })},
    {"mounts", One(ShowMounts)},
    {"selected", [](const TTexts& given) { return ShowSelected(given[0], given[1]); }}};

/// Characters that a line of the data cannot hold; "\e" is none.
std::string Restore(std::string text) {
  for (const char* pair : {"n\n", "r\r", "t\t", "e"}) {
    boost::replace_all(text, std::string("\\") + pair[0], pair + 1);
  }
  return text;
}

/// "-" for nothing.
std::string Parse(const TParser& parser, const std::string& text) {
  TTexts parts;
  const std::string shown = parser(boost::split(parts, Restore(text), boost::is_any_of("|")));
  return shown.empty() ? "-" : boost::trim_right_copy(shown);
}

/// After "each:" every line is a text of its own.
TEST(TextParsers, Cases) {
  CheckCases("texts.txt", [](const std::string& given) {
    TTexts lines;
    boost::split(lines, given, boost::is_any_of("\n"));
    const std::string head = lines.front();
    const TParser& parser = kParsers.at(head.substr(0, head.find(':')));
    if (!boost::ends_with(head, "each:")) return Parse(parser, given.substr(head.size() + 1));
    TTexts shown;
    for (std::size_t i = 1; i < lines.size(); ++i) shown.push_back(Parse(parser, lines[i]));
    return boost::join(shown, "\n");
  });
}

TEST(TextParsers, SumsThatDoNotFit) {
  EXPECT_EQ(std::nullopt, Add(18446744073709551615U, 1));
  EXPECT_EQ(std::nullopt, Multiply(18446744073709551615U, 2));
}

}  // namespace
}  // namespace NZELVYR20

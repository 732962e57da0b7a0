#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "TCIMDateTime.h"

namespace NZELVYR20 {

/// What /etc/os-release tells.
struct TReleaseFacts {
  std::string prettyName;
  std::string name;
};

/// Reads NAME=value lines, with the quotes and back-slashes of a shell.
TReleaseFacts ParseRelease(std::string_view text);

/// What /proc/meminfo tells, or that of one node of the memory, in KiB.
struct TMemoryFacts {
  std::optional<std::uint64_t> total;
  std::optional<std::uint64_t> free;
  std::optional<std::uint64_t> swapTotal;
  std::optional<std::uint64_t> swapFree;
};

TMemoryFacts ParseMemory(std::string_view text);

/// The line "btime" of /proc/stat: seconds since 1970 at which the machine was started.
std::optional<std::uint64_t> ParseBootTime(std::string_view text);

/// The first number of /proc/uptime, in whole seconds.
std::optional<std::uint64_t> ParseUptime(std::string_view text);

/// The moment in UTC; nothing after the year 9999.
std::optional<TCIMDateTime> ToTimeStamp(std::uint64_t secondsSince1970);

/// The form of a chassis: the standard's ChassisPackageType, and words where that is 1 (other).
struct TChassisForm {
  std::uint16_t type = 0;
  std::string other;
};

/// By the number that firmware gives to it; nothing where it gives none.
std::optional<TChassisForm> ParseChassisForm(std::string_view text);

/// A date such as "04/01/2014", month first, at midnight in UTC.
std::optional<TCIMDateTime> ParseFirmwareDate(std::string_view text);

/// How many are logged in: the records of /run/utmp that are users'. Nothing where it is no such
/// file.
std::optional<std::uint32_t> CountUsers(std::string_view records);

/// The first number of /proc/loadavg, for so many processors: how busy each was in the last minute,
/// in percent.
std::optional<std::uint16_t> ParseLoadPercentage(std::string_view text, std::size_t processors);

/// The text, or nothing where firmware only filled in a placeholder.
std::string CleanFirmwareText(const std::string& text);

}  // namespace NZELVYR20

#include "SystemText.h"

#include <utmpx.h>

#include <algorithm>
#include <array>
#include <boost/date_time/gregorian/greg_date.hpp>
#include <cstring>

#include "FoldName.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

/// Takes the quotes off a value; inside double quotes a back-slash makes the next character plain.
std::string Unquote(std::string_view value) {
  if (value.empty() || (value.front() != '"' && value.front() != '\'')) return std::string(value);
  const char quote = value.front();
  std::string text;
  for (std::size_t i = 1; i < value.size() && value[i] != quote; ++i) {
    if (quote == '"' && value[i] == '\\' && i + 1 < value.size()) ++i;
    text += value[i];
  }
  return text;
}

}  // namespace

TReleaseFacts ParseRelease(std::string_view text) {
  TReleaseFacts facts;
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> field = SplitField(line, '=');
    if (!field) continue;
    if (field->name == "PRETTY_NAME") facts.prettyName = Unquote(field->value);
    if (field->name == "NAME") facts.name = Unquote(field->value);
  }
  return facts;
}

TMemoryFacts ParseMemory(std::string_view text) {
  TMemoryFacts facts;
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> field = SplitField(line, ':');
    if (!field) continue;
    const std::vector<std::string_view> words = SplitWords(field->value);
    if (words.size() != 2 || words[1] != "kB") continue;
    const std::optional<std::uint64_t> size = ParseUnsigned(words[0]);
    // A node of the memory says its number before each name.
    const std::string_view name = field->name.substr(field->name.find_last_of(' ') + 1);
    if (name == "MemTotal") facts.total = size;
    if (name == "MemFree") facts.free = size;
    if (name == "SwapTotal") facts.swapTotal = size;
    if (name == "SwapFree") facts.swapFree = size;
  }
  return facts;
}

std::optional<std::uint64_t> ParseBootTime(std::string_view text) {
  for (const std::string_view line : SplitLines(text)) {
    const std::vector<std::string_view> words = SplitWords(line);
    if (words.size() == 2 && words[0] == "btime") return ParseUnsigned(words[1]);
  }
  return std::nullopt;
}

std::optional<std::uint64_t> ParseUptime(std::string_view text) {
  return ParseUnsigned(text.substr(0, text.find('.')));
}

std::optional<TCIMDateTime> ToTimeStamp(std::uint64_t secondsSince1970) {
  constexpr std::uint64_t kSecondsPerDay = 86400;
  const boost::gregorian::date epoch(1970, 1, 1);
  const boost::gregorian::date last(9999, 12, 31);
  const std::uint64_t days = secondsSince1970 / kSecondsPerDay;
  if (days > static_cast<std::uint64_t>((last - epoch).days())) return std::nullopt;
  const boost::gregorian::date day = epoch + boost::gregorian::days(static_cast<long>(days));
  const auto seconds = static_cast<unsigned>(secondsSince1970 % kSecondsPerDay);
  TCIMDateTime moment;
  moment.SetTimeStamp(day.year(), day.month(), day.day(), seconds / 3600, seconds / 60 % 60,
                      seconds % 60, 0, 0);
  return moment;
}

std::optional<TChassisForm> ParseChassisForm(std::string_view text) {
  constexpr std::uint16_t kLast = 36;
  const std::optional<std::uint16_t> type = ParseNumber<std::uint16_t>(text);
  if (!type || *type == 0) return std::nullopt;
  // Firmware and the standard number the forms alike, but for these.
  if (*type == 1) return TChassisForm{1, "Other than the forms that firmware knows"};
  if (*type == 2) return TChassisForm{0, {}};
  if (*type == 23) return TChassisForm{1, "Rack Mount Chassis"};
  if (*type == 25) return TChassisForm{1, "Multi-system Chassis"};
  if (*type == 28) return TChassisForm{1, "Blade"};
  if (*type == 29) return TChassisForm{28, {}};
  if (*type > kLast) return TChassisForm{1, "Firmware's number " + std::to_string(*type)};
  return TChassisForm{*type, {}};
}

std::optional<TCIMDateTime> ParseFirmwareDate(std::string_view text) {
  const std::optional<TField> month = SplitField(text, '/');
  const std::optional<TField> day = month ? SplitField(month->value, '/') : std::nullopt;
  if (!day) return std::nullopt;
  const auto monthNumber = ParseNumber<std::uint16_t>(month->name);
  const auto dayNumber = ParseNumber<std::uint16_t>(day->name);
  const auto year = ParseNumber<std::uint16_t>(day->value);
  if (!monthNumber || !dayNumber || !year || *year < 1980 || *year > 9999 || *monthNumber < 1 ||
      *monthNumber > 12 || *dayNumber < 1 ||
      *dayNumber > boost::gregorian::gregorian_calendar::end_of_month_day(*year, *monthNumber)) {
    return std::nullopt;
  }
  TCIMDateTime date;
  date.SetTimeStamp(*year, *monthNumber, *dayNumber, 0, 0, 0, 0, 0);
  return date;
}

std::optional<std::uint32_t> CountUsers(std::string_view records) {
  if (records.size() % sizeof(utmpx) != 0) return std::nullopt;
  std::uint32_t count = 0;
  for (; !records.empty(); records.remove_prefix(sizeof(utmpx))) {
    utmpx record = {};
    std::memcpy(&record, records.data(), sizeof record);
    if (record.ut_type == USER_PROCESS) ++count;
  }
  return count;
}

std::optional<std::uint16_t> ParseLoadPercentage(std::string_view text, std::size_t processors) {
  constexpr std::uint64_t kAll = 100;
  const std::optional<TField> load = SplitField(text.substr(0, text.find(' ')), '.');
  // It has two digits after the point.
  if (!load || load->value.size() != 2 || processors == 0) return std::nullopt;
  const auto percent = Add(Multiply(ParseUnsigned(load->name), kAll), ParseUnsigned(load->value));
  if (!percent) return std::nullopt;
  return static_cast<std::uint16_t>(std::min(*percent / processors, kAll));
}

std::string CleanFirmwareText(const std::string& text) {
  static constexpr std::array<std::string_view, 6> kPlaceholders = {
      "to be filled by o.e.m.", "default string",      "not specified",
      "system product name",    "system manufacturer", "none"};
  const auto* found = std::find(kPlaceholders.begin(), kPlaceholders.end(), FoldName(text));
  return found == kPlaceholders.end() ? text : std::string();
}

}  // namespace NZELVYR20

#include "TCIMDateTime.h"

#include <array>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <stdexcept>

namespace NZELVYR20 {

namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1000000;
constexpr std::int64_t kSecondsPerMinute = 60;
constexpr std::int64_t kSecondsPerHour = 3600;
constexpr std::int64_t kSecondsPerDay = 86400;

/// A field of the CIM text form and the values that it may take.
struct TField {
  const char* name;
  std::int64_t low;
  std::int64_t high;
  std::size_t start;  ///< in the text, counted from 0
  std::size_t length;
};

constexpr std::size_t kTextLength = 25;
constexpr std::size_t kPoint = 14;
constexpr std::size_t kOffsetSign = 21;
constexpr std::size_t kFieldCount = 8;
using TFieldValues = std::array<std::int64_t, kFieldCount>;

constexpr std::size_t kYear = 0;
constexpr std::size_t kMonth = 1;
constexpr std::size_t kDay = 2;
constexpr TField kStampFields[kFieldCount] = {{"year", 0, 9999, 0, 4},
                                              {"month", 1, 12, 4, 2},
                                              {"day", 1, 31, 6, 2},
                                              {"hour", 0, 23, 8, 2},
                                              {"minute", 0, 59, 10, 2},
                                              {"second", 0, 59, 12, 2},
                                              {"microsecond", 0, 999999, 15, 6},
                                              {"offset", 0, 999, 22, 3}};

// An interval has no year and month: its first eight digits are days. The fields after them stand
// where a stamp has them.
constexpr TField kIntervalFields[] = {{"day", 0, 99999999, 0, 8},        {"hour", 0, 23, 8, 2},
                                      {"minute", 0, 59, 10, 2},          {"second", 0, 59, 12, 2},
                                      {"microsecond", 0, 999999, 15, 6}, {"offset", 0, 0, 22, 3}};

bool IsLeapYear(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

std::int64_t GetDaysInMonth(std::int64_t year, std::int64_t month) {
  constexpr std::int64_t kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

/// The days since the first of January of the year 0.
std::int64_t GetDayNumber(std::int64_t year, std::int64_t month, std::int64_t day) {
  const std::int64_t earlier = year - 1;
  const std::int64_t leapDays = year == 0 ? 0 : 1 + earlier / 4 - earlier / 100 + earlier / 400;
  std::int64_t number = year * 365 + leapDays + day - 1;
  for (std::int64_t i = 1; i < month; ++i) number += GetDaysInMonth(year, i);
  return number;
}

std::string Pad(std::int64_t number, std::size_t width) {
  std::string digits = std::to_string(number);
  return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

std::string ClockText(std::int64_t hours, std::int64_t minutes, std::int64_t seconds) {
  return Pad(hours, 2) + ':' + Pad(minutes, 2) + ':' + Pad(seconds, 2);
}

std::string OffsetText(int offsetMinutes) {
  const int minutes = std::abs(offsetMinutes);
  return (offsetMinutes < 0 ? '-' : '+') + Pad(minutes / 60, 2) + ':' + Pad(minutes % 60, 2);
}

std::string Complaint(const TField& field, std::int64_t value) {
  return std::string("there is no ") + field.name + ' ' + std::to_string(value);
}

/// The index of the first field that makes these values no date and time, or kFieldCount.
std::size_t FindWrongStampField(const TFieldValues& values) {
  for (std::size_t i = 0; i < kFieldCount; ++i) {
    if (values[i] < kStampFields[i].low || values[i] > kStampFields[i].high) return i;
    if (i == kDay && values[kDay] > GetDaysInMonth(values[kYear], values[kMonth])) return i;
  }
  return kFieldCount;
}

[[noreturn]] void FailAt(const std::string& text, std::size_t position,
                         const std::string& message) {
  throw std::invalid_argument("date-time \"" + text + "\", column " + std::to_string(position + 1) +
                              ": " + message);
}

const char* ExpectedAt(std::size_t position) {
  if (position == kPoint) return "expected \".\"";
  if (position == kOffsetSign) return "expected \"+\", \"-\" or \":\"";
  return "expected a digit";
}

bool IsExpectedAt(std::size_t position, char character) {
  if (position == kPoint) return character == '.';
  if (position == kOffsetSign) return character == '+' || character == '-' || character == ':';
  return character >= '0' && character <= '9';
}

void CheckShape(const std::string& text) {
  for (std::size_t i = 0; i < kTextLength; ++i) {
    if (i == text.size()) FailAt(text, i, "the text ends early");
    if (text[i] == '*') FailAt(text, i, "wildcards are not supported");
    if (!IsExpectedAt(i, text[i])) FailAt(text, i, ExpectedAt(i));
  }
  if (text.size() > kTextLength) FailAt(text, kTextLength, "expected the end of the text");
}

std::int64_t ReadField(const std::string& text, const TField& field) {
  return std::stoll(text.substr(field.start, field.length));
}

TCIMDateTime ReadInterval(const std::string& text) {
  std::array<std::uint32_t, std::size(kIntervalFields)> values{};
  for (std::size_t i = 0; i < values.size(); ++i) {
    const TField& field = kIntervalFields[i];
    const std::int64_t value = ReadField(text, field);
    if (value > field.high) FailAt(text, field.start, Complaint(field, value));
    values[i] = static_cast<std::uint32_t>(value);
  }
  TCIMDateTime interval;
  interval.Set(values[0], static_cast<unsigned short>(values[1]),
               static_cast<unsigned short>(values[2]), static_cast<unsigned short>(values[3]),
               values[4]);
  return interval;
}

TCIMDateTime ReadTimeStamp(const std::string& text) {
  TFieldValues values{};
  for (std::size_t i = 0; i < kFieldCount; ++i) values[i] = ReadField(text, kStampFields[i]);
  const std::size_t wrong = FindWrongStampField(values);
  if (wrong != kFieldCount) {
    FailAt(text, kStampFields[wrong].start, Complaint(kStampFields[wrong], values[wrong]));
  }
  const auto field = [&values](std::size_t i) { return static_cast<unsigned>(values[i]); };
  const int offset = static_cast<int>(values[7]);
  TCIMDateTime stamp;
  stamp.SetTimeStamp(static_cast<int>(values[kYear]), field(kMonth), field(kDay), field(3),
                     field(4), field(5), field(6), text[kOffsetSign] == '-' ? -offset : offset);
  return stamp;
}

}  // namespace

TCIMDateTime::TCIMDateTime() noexcept = default;

void TCIMDateTime::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                       unsigned short seconds, unsigned int microseconds) noexcept {
  *this = TCIMDateTime();
  days_ = days;
  hours_ = hours;
  minutes_ = minutes;
  seconds_ = seconds;
  microseconds_ = microseconds;
}

void TCIMDateTime::SetTimeStamp(int year, unsigned month, unsigned day, unsigned hours,
                                unsigned minutes, unsigned seconds, unsigned microseconds,
                                int offsetMinutes) {
  const TFieldValues values = {
      year,    month,   day,          hours,
      minutes, seconds, microseconds, std::abs(static_cast<std::int64_t>(offsetMinutes))};
  const std::size_t wrong = FindWrongStampField(values);
  if (wrong != kFieldCount) {
    throw std::invalid_argument(Complaint(kStampFields[wrong], values[wrong]));
  }
  isInterval_ = false;
  year_ = year;
  month_ = static_cast<std::uint8_t>(month);
  days_ = day;
  hours_ = static_cast<std::uint16_t>(hours);
  minutes_ = static_cast<std::uint16_t>(minutes);
  seconds_ = static_cast<std::uint16_t>(seconds);
  microseconds_ = microseconds;
  offsetMinutes_ = static_cast<std::int16_t>(offsetMinutes);
}

bool TCIMDateTime::IsInterval() const noexcept { return isInterval_; }

std::string TCIMDateTime::ToUIString() const {
  // A whole second among the microseconds has no place after the point.
  const std::int64_t seconds = seconds_ + microseconds_ / kMicrosecondsPerSecond;
  const std::int64_t microseconds = microseconds_ % kMicrosecondsPerSecond;
  std::string clock = ClockText(hours_, minutes_, seconds);
  if (microseconds != 0) clock += '.' + Pad(microseconds, 6);
  if (isInterval_) return std::to_string(days_) + " days " + clock;
  return Pad(year_, 4) + '-' + Pad(month_, 2) + '-' + Pad(days_, 2) + ' ' + clock + ' ' +
         OffsetText(offsetMinutes_);
}

std::string TCIMDateTime::ToCIMString() const {
  if (!isInterval_) {
    return Pad(year_, 4) + Pad(month_, 2) + Pad(days_, 2) + Pad(hours_, 2) + Pad(minutes_, 2) +
           Pad(seconds_, 2) + '.' + Pad(microseconds_, 6) + (offsetMinutes_ < 0 ? '-' : '+') +
           Pad(std::abs(offsetMinutes_), 3);
  }
  const auto [seconds, microseconds] = GetSecondsAndMicroseconds();
  return Pad(seconds / kSecondsPerDay, 8) + Pad(seconds % kSecondsPerDay / kSecondsPerHour, 2) +
         Pad(seconds % kSecondsPerHour / kSecondsPerMinute, 2) +
         Pad(seconds % kSecondsPerMinute, 2) + '.' + Pad(microseconds, 6) + ":000";
}

TCIMDateTime TCIMDateTime::FromCIMString(const std::string& text) {
  CheckShape(text);
  return text[kOffsetSign] == ':' ? ReadInterval(text) : ReadTimeStamp(text);
}

std::pair<std::int64_t, std::int64_t> TCIMDateTime::GetSecondsAndMicroseconds() const noexcept {
  const std::int64_t days = isInterval_ ? days_ : GetDayNumber(year_, month_, days_);
  const std::int64_t seconds = days * kSecondsPerDay + hours_ * kSecondsPerHour +
                               (minutes_ - offsetMinutes_) * kSecondsPerMinute + seconds_;
  return {seconds + microseconds_ / kMicrosecondsPerSecond, microseconds_ % kMicrosecondsPerSecond};
}

bool TCIMDateTime::operator==(const TCIMDateTime& other) const noexcept {
  return isInterval_ == other.isInterval_ &&
         GetSecondsAndMicroseconds() == other.GetSecondsAndMicroseconds();
}

bool TCIMDateTime::operator<(const TCIMDateTime& other) const noexcept {
  if (isInterval_ != other.isInterval_) return isInterval_;
  return GetSecondsAndMicroseconds() < other.GetSecondsAndMicroseconds();
}

}  // namespace NZELVYR20

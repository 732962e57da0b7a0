#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "VYRExport.h"

namespace NZELVYR20 {

/// A CIM date-time: either an interval or a time stamp with its offset from UTC.
class VYR_EXPORT TCIMDateTime {
 public:
  /// An interval of zero length.
  TCIMDateTime() noexcept;

  /// Makes this an interval. The fields are stored as given: hours above 23, say, are not carried
  /// over into days.
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds) noexcept;

  /// Makes this a time stamp: a wall-clock time, and the minutes by which that clock is ahead of
  /// UTC. Throws std::invalid_argument, naming the field, when there is no such date or time
  /// between the years 0 and 9999 or the offset exceeds 999 minutes; the object is then unchanged.
  void SetTimeStamp(int year, unsigned month, unsigned day, unsigned hours, unsigned minutes,
                    unsigned seconds, unsigned microseconds, int offsetMinutes);

  /// False for a time stamp.
  bool IsInterval() const noexcept;

  /// The display text. An interval: "2 days 03:04:05" (in this form for any count), a time stamp:
  /// "2026-11-21 08:49:29 +01:00"; microseconds follow the seconds (".000123") only where there
  /// are any.
  std::string ToUIString() const;

  /// The 25 characters of the CIM text form: "yyyymmddhhmmss.mmmmmmsutc" or
  /// "ddddddddhhmmss.mmmmmm:000". Here the fields of an interval are carried over (30 hours are a
  /// day and 6 hours); days beyond eight digits make the text longer.
  std::string ToCIMString() const;

  /// Reads the CIM text form, without wildcards. Throws std::invalid_argument, naming what is
  /// wrong and the column.
  static TCIMDateTime FromCIMString(const std::string& text);

  /// @{
  /// Two date-times are equal when they are of one kind and denote the same moment or length.
  /// Intervals sort before time stamps, within a kind the shorter or earlier first.
  bool operator==(const TCIMDateTime& other) const noexcept;
  bool operator!=(const TCIMDateTime& other) const noexcept { return !(*this == other); }
  bool operator<(const TCIMDateTime& other) const noexcept;
  /// @}

 private:
  std::pair<std::int64_t, std::int64_t> GetSecondsAndMicroseconds() const noexcept;

  std::int32_t year_ = 0;
  std::uint32_t days_ = 0;  ///< of the interval, or day of the month
  std::uint32_t microseconds_ = 0;
  std::int16_t offsetMinutes_ = 0;
  std::uint16_t hours_ = 0;
  std::uint16_t minutes_ = 0;
  std::uint16_t seconds_ = 0;
  std::uint8_t month_ = 0;
  bool isInterval_ = true;
};

}  // namespace NZELVYR20

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What the files of a sensor measure, and how the standard numbers that.
struct TSensorKind {
  std::uint16_t sensorType = 0;   ///< the standard's SensorType
  std::string other;              ///< in words, where that is 1 (other)
  std::uint16_t baseUnits = 0;    ///< the standard's BaseUnits
  std::int32_t unitModifier = 0;  ///< the power of ten by which readings are to be multiplied
  const char* unit = "";          ///< as people write it
  std::int32_t divisor = 1;       ///< of what the file says, so that the reading fits 32 bits
};

/// By a file's name such as "temp1_input"; nothing for any other.
std::optional<TSensorKind> FindSensorKind(std::string_view fileName);

/// A reading as its file has it: a whole number, with a sign where it is negative.
std::optional<std::int32_t> ParseReading(std::string_view text, std::int32_t divisor);

/// The reading in words, such as "45.5 degrees C".
std::string DescribeReading(std::int32_t reading, const TSensorKind& kind);

/// The standard's BatteryStatus for what the kernel says; 2, "unknown", for anything else.
std::uint16_t ParseBatteryStatus(std::string_view text, std::optional<std::uint16_t> percent);

/// The standard's Chemistry, and 1 for what is other than all it knows.
std::uint16_t ParseChemistry(std::string_view text);

}  // namespace NZELVYR20

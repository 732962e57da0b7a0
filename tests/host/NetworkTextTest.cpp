#include "NetworkText.h"

#include <gtest/gtest.h>

namespace NZELVYR20 {
namespace {

TEST(NetworkText, Speeds) {
  const struct {
    const char* description = nullptr;
    const char* text = nullptr;
    std::optional<std::uint64_t> speed;
  } rows[] = {
      {"a gigabit", "1000", 1000000000},
      {"beyond 32 bits", "400000\n", 400000000000},
      {"not known", "-1", {}},
      {"not known, in 32 bits without sign", "4294967295", {}},
      {"not known, in 16 bits without sign", "65535", {}},
      {"no link", "0", {}},
      {"could not be read", "", {}},
      {"too large", "18446744073709551615", {}},
  };
  for (const auto& row : rows) EXPECT_EQ(row.speed, ParsePortSpeed(row.text)) << row.description;
}

TEST(NetworkText, HardwareAddresses) {
  const struct {
    const char* description;
    const char* text;
    const char* address;
  } rows[] = {
      {"lower case", "02:fc:00:0a:0b:ff\n", "02FC000A0BFF"},
      {"the twenty bytes of InfiniBand",
       "80:00:00:48:fe:80:00:00:00:00:00:00:00:02:c9:03:00:0a:1b:2c",
       "80000048FE800000000000000002C903000A1B2C"},
      {"loopback", "00:00:00:00:00:00", ""},
      {"none", "", ""},
      {"no hexadecimal digits", "02:fc:00:0a:0b:zz", ""},
      {"cut off", "02:fc:0", ""},
  };
  for (const auto& row : rows)
    EXPECT_EQ(row.address, ParseHardwareAddress(row.text)) << row.description;
}

TEST(NetworkText, StatesAndKinds) {
  const struct {
    const char* description;
    const char* state;
    const char* flags;
    std::uint16_t operationalStatus;
    std::uint16_t enabledState;
  } rows[] = {
      {"up", "up", "0x1003", 2, 2},
      {"enabled, but nothing is plugged in", "down", "0x1003", 10, 6},
      {"disabled", "down", "0x1002", 10, 3},
      {"loopback does not tell", "unknown", "0x9", 0, 2},
      {"only the flags can be read", "", "0x9", 0, 0},
      {"flags cannot be read", "up", "", 2, 0},
      {"a word that nobody knows", "sideways", "0x2", 0, 3},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TPortState state = ParsePortState(row.state, row.flags);
    EXPECT_EQ(row.operationalStatus, state.operationalStatus);
    EXPECT_EQ(row.enabledState, state.enabledState);
  }
  EXPECT_EQ(2, ParseLinkKind("1").technology);
  EXPECT_EQ("Loopback", ParseLinkKind("772").other);
  EXPECT_EQ(0, ParseLinkKind("4711").technology);
  EXPECT_EQ(std::nullopt, ParseFullDuplex("unknown"));
  EXPECT_EQ(false, ParseFullDuplex("half"));
}

}  // namespace
}  // namespace NZELVYR20

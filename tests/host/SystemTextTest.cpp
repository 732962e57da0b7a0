#include "SystemText.h"

#include <gtest/gtest.h>

#include <string>

namespace NZELVYR20 {
namespace {

using TNumber = std::optional<std::uint64_t>;

TEST(SystemText, ReleaseFiles) {
  const struct {
    const char* description;
    std::string text;
    std::string prettyName;
    std::string name;
  } rows[] = {
      {"double quotes", "PRETTY_NAME=\"Sample Linux 7 (north)\"\nNAME=\"Sample Linux\"\nID=s\n",
       "Sample Linux 7 (north)", "Sample Linux"},
      {"no quotes, no line end", "NAME=Sample", "", "Sample"},
      {"single quotes and CR LF", "NAME='A B'\r\nPRETTY_NAME='A B 1'\r\n", "A B 1", "A B"},
      {"escapes inside quotes", "NAME=\"The \\\"Best\\\" \\$1\"\n", "", "The \"Best\" $1"},
      {"cut off inside quotes", "PRETTY_NAME=\"Sample Li", "Sample Li", ""},
      {"cut off after a back-slash", "NAME=\"Sample\\", "", "Sample\\"},
      {"comments and rubbish", "# NAME=none\n\n=\nNAME\n", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TReleaseFacts facts = ParseRelease(row.text);
    EXPECT_EQ(row.prettyName, facts.prettyName);
    EXPECT_EQ(row.name, facts.name);
  }
}

TEST(SystemText, MemoryFiles) {
  const struct {
    const char* description;
    std::string text;
    TNumber total;
    TNumber swapFree;
  } rows[] = {
      {"all fields",
       "MemTotal:       16316412 kB\nMemFree:         1 kB\nSwapTotal: 5 kB\nSwapFree:  4 kB\n",
       16316412, 4},
      {"CR LF", "MemTotal: 7 kB\r\nSwapFree: 0 kB\r\n", 7, 0},
      {"cut off before the unit: the number may be cut, too", "SwapFree: 3 kB\nMemTotal:  163",
       std::nullopt, 3},
      {"too large for 64 bits", "MemTotal: 99999999999999999999 kB\n", std::nullopt, std::nullopt},
      {"similar names", "MemTotalHigh: 3 kB\nxSwapFree: 2 kB\n", std::nullopt, std::nullopt},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TMemoryFacts facts = ParseMemory(row.text);
    EXPECT_EQ(row.total, facts.total);
    EXPECT_EQ(row.swapFree, facts.swapFree);
  }
}

TEST(SystemText, TimesOfStartAndRun) {
  EXPECT_EQ(TNumber(1700000000), ParseBootTime("cpu  1 2 3\nbtime 1700000000\nprocesses 9\n"));
  EXPECT_EQ(TNumber(), ParseBootTime("cpu 1\nbtime\n"));
  EXPECT_EQ(TNumber(), ParseBootTime("btime -5\n"));
  EXPECT_EQ(TNumber(1313), ParseUptime("1313.20 2400.47\n"));
  EXPECT_EQ(TNumber(), ParseUptime(""));
}

TEST(SystemText, TimeStamps) {
  const struct {
    const char* description;
    std::uint64_t seconds;
    const char* text;  ///< null where there is no such time stamp
  } rows[] = {
      {"the first second", 0, "19700101000000.000000+000"},
      {"a leap day", 1709251199, "20240229235959.000000+000"},
      {"beyond 32 bits", 4294967296, "21060207062816.000000+000"},
      {"the last one", 253402300799, "99991231235959.000000+000"},
      {"one too late", 253402300800, nullptr},
      {"the largest number", 18446744073709551615U, nullptr},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const std::optional<TCIMDateTime> moment = ToTimeStamp(row.seconds);
    ASSERT_EQ(row.text != nullptr, moment.has_value());
    if (moment) {
      EXPECT_EQ(row.text, moment->ToCIMString());
    }
  }
}

TEST(SystemText, Firmware) {
  EXPECT_EQ(3, ParseChassisType("3"));
  EXPECT_EQ(0, ParseChassisType("2\n")) << "firmware's number for unknown";
  EXPECT_EQ(1, ParseChassisType("31")) << "not in the standard's list";
  EXPECT_FALSE(ParseChassisType("0"));
  EXPECT_FALSE(ParseChassisType("70000"));
  EXPECT_EQ("", CleanFirmwareText("TO BE FILLED BY O.E.M."));
  EXPECT_EQ("Board 5", CleanFirmwareText("Board 5"));
}

}  // namespace
}  // namespace NZELVYR20

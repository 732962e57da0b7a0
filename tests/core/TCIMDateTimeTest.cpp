#include "TCIMDateTime.h"

#include <gtest/gtest.h>

#include <ctime>
#include <stdexcept>

#include "TOSSpecific.h"

namespace NZELVYR20 {
namespace {

TEST(TCIMDateTime, ReadsAndWritesBothKinds) {
  const struct {
    const char* text;
    const char* shown;
  } rows[] = {
      {"00000000000000.000000:000", "0 days 00:00:00"},
      {"00000001000005.000000:000", "1 days 00:00:05"},
      {"99999999235959.000123:000", "99999999 days 23:59:59.000123"},
      {"20261121084929.000000+060", "2026-11-21 08:49:29 +01:00"},
      {"20240229235959.999999-030", "2024-02-29 23:59:59.999999 -00:30"},
      {"00000101000000.000000+000", "0000-01-01 00:00:00 +00:00"},
  };
  for (const auto& row : rows) {
    const TCIMDateTime value = TCIMDateTime::FromCIMString(row.text);
    EXPECT_EQ(value.ToUIString(), row.shown);
    EXPECT_EQ(value.ToCIMString(), row.text);
    EXPECT_EQ(value.IsInterval(), row.text[21] == ':');
  }
}

TEST(TCIMDateTime, NamesWhatIsWrongAndWhere) {
  const struct {
    const char* text;
    const char* message;
  } rows[] = {
      {"", "column 1: the text ends early"},
      {"2026112108492x.000000+060", "column 14: expected a digit"},
      {"20261121084929,000000+060", "column 15: expected \".\""},
      {"20261121084929.000000 060", "column 22: expected \"+\", \"-\" or \":\""},
      {"20261121084929.******+060", "column 16: wildcards are not supported"},
      {"20261121084929.000000+0600", "column 26: expected the end of the text"},
      {"20261321084929.000000+060", "column 5: there is no month 13"},
      {"19000229084929.000000+060", "column 7: there is no day 29"},
      {"20261121084960.000000+060", "column 13: there is no second 60"},
      {"00000001006000.000000:000", "column 11: there is no minute 60"},
      {"00000001000000.000000:001", "column 23: there is no offset 1"},
  };
  for (const auto& row : rows) {
    try {
      TCIMDateTime::FromCIMString(row.text);
      ADD_FAILURE() << row.text;
    } catch (const std::invalid_argument& error) {
      EXPECT_EQ(error.what(), "date-time \"" + std::string(row.text) + "\", " + row.message);
    }
  }
}

TEST(TCIMDateTime, KeepsTheFieldsOfAnIntervalAsGiven) {
  TCIMDateTime interval;
  interval.Set(2, 30, 61, 5, 0);
  EXPECT_EQ(interval.ToUIString(), "2 days 30:61:05");
  EXPECT_EQ(interval.ToCIMString(), "00000003070105.000000:000");
  interval.Set(4294967295U, 65535, 65535, 65535, 4294967295U);
  EXPECT_EQ(interval.ToUIString(), "4294967295 days 65535:65535:69829.967295");
  EXPECT_EQ(interval.ToCIMString(), "4294970071223849.967295:000");
}

TEST(TCIMDateTime, StaysAsItWasAfterABadStamp) {
  TCIMDateTime value;
  value.SetTimeStamp(2026, 1, 2, 3, 4, 5, 6, 7);
  EXPECT_THROW(value.SetTimeStamp(10000, 1, 1, 0, 0, 0, 0, 0), std::invalid_argument);
  EXPECT_THROW(value.SetTimeStamp(2026, 0, 1, 0, 0, 0, 0, 0), std::invalid_argument);
  EXPECT_THROW(value.SetTimeStamp(2026, 1, 1, 0, 0, 0, 0, -1000), std::invalid_argument);
  EXPECT_EQ(value.ToCIMString(), "20260102030405.000006+007");
  value.Set(1, 2, 3, 4, 0);
  EXPECT_EQ(value, TCIMDateTime::FromCIMString("00000001020304.000000:000"));
}

TEST(TCIMDateTime, ComparesMomentsAndLengths) {
  const char* const ascending[] = {"00000000000000.000001:000", "00000001000000.000000:000",
                                   "20231231235959.999999+000", "20240101010000.000000+030",
                                   "20240101000000.000000-060", "20240301000000.000000+000"};
  for (std::size_t i = 0; i < std::size(ascending); ++i) {
    for (std::size_t j = 0; j < std::size(ascending); ++j) {
      const TCIMDateTime left = TCIMDateTime::FromCIMString(ascending[i]);
      const TCIMDateTime right = TCIMDateTime::FromCIMString(ascending[j]);
      EXPECT_EQ(left < right, i < j) << ascending[i] << ' ' << ascending[j];
      EXPECT_EQ(left == right, i == j) << ascending[i] << ' ' << ascending[j];
    }
  }
  EXPECT_EQ(TCIMDateTime::FromCIMString("20240301003000.000000+090"),
            TCIMDateTime::FromCIMString("20240229230000.000000+000"));
  EXPECT_EQ(TCIMDateTime::FromCIMString("19010101003000.000000+090"),
            TCIMDateTime::FromCIMString("19001231230000.000000+000"));
  TCIMDateTime uncarried;
  uncarried.Set(0, 23, 59, 59, 1000000);
  EXPECT_EQ(uncarried, TCIMDateTime::FromCIMString("00000001000000.000000:000"));
}

TEST(TCIMDateTime, TellsTheLocalTime) {
  ASSERT_EQ(setenv("TZ", "XYZ-05:30", 1), 0);
  tzset();
  const std::time_t before = std::time(nullptr);
  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  unsetenv("TZ");
  tzset();
  const auto stamp = [](std::time_t moment) {
    std::string text = "yyyymmddhhmmss.000000+000";
    std::strftime(text.data(), 15, "%Y%m%d%H%M%S", std::gmtime(&moment));
    text[14] = '.';
    return TCIMDateTime::FromCIMString(text);
  };
  EXPECT_FALSE(now < stamp(before));
  EXPECT_TRUE(now < stamp(std::time(nullptr) + 1));
  EXPECT_EQ(now.ToCIMString().substr(21), "+330");
}

}  // namespace
}  // namespace NZELVYR20

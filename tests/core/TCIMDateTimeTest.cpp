#include "TCIMDateTime.h"

#include <ctime>

#include "Cases.h"
#include "Paths.h"
#include "TOSSpecific.h"

namespace NZELVYR20 {

const auto kRead = TCIMDateTime::FromCIMString;

TEST(TCIMDateTime, IsShownOrToldWhatIsWrongAndWhere) {
  CheckCases("datetime.txt", [](TText text) {
    return ResultOf([&text] {
      const TCIMDateTime read = kRead(text);
      EXPECT_EQ(read.ToCIMString(), text);
      EXPECT_EQ(read.IsInterval(), text[21] == ':') << text;
      return read.ToUIString();
    });
  });
}

TEST(TCIMDateTime, KeepsTheFieldsAsGivenOrAsTheyWere) {
  TCIMDateTime value;
  value.SetTimeStamp(2026, 1, 2, 3, 4, 5, 6, 7);
  EXPECT_THROW(value.SetTimeStamp(10000, 1, 1, 0, 0, 0, 0, 0), std::invalid_argument);
  EXPECT_THROW(value.SetTimeStamp(2027, 2, 3, 4, 5, 6, 7, -1000), std::invalid_argument);
  EXPECT_EQ(value.ToCIMString(), "20260102030405.000006+007");
  value.Set(2, 30, 61, 5, 0);
  EXPECT_EQ(value.ToUIString(), "2 days 30:61:05");
  EXPECT_EQ(value, kRead("00000003070105.000000:000"));
  value.Set(4294967295U, 65535, 65535, 65535, 4294967295U);
  EXPECT_EQ(value.ToUIString(), "4294967295 days 65535:65535:69829.967295");
  EXPECT_EQ(value.ToCIMString(), "4294970071223849.967295:000");
}

TEST(TCIMDateTime, ComparesMomentsAndLengths) {
  const char* const ascending[] = {"00000000000000.000001:000", "00000001000000.000000:000",
                                   "00000101000000.000001+000", "20231231235959.999999+000",
                                   "20240101010000.000000+030", "20240101000000.000000-060",
                                   "20241231235959.999999+000", "20250101000000.000000+000"};
  for (const char* const& left : ascending) {
    for (const char* const& right : ascending) {
      EXPECT_EQ(kRead(left) < kRead(right), &left < &right) << left << " < " << right;
      EXPECT_EQ(kRead(left) == kRead(right), &left == &right) << left << " == " << right;
    }
  }
  EXPECT_EQ(kRead("20240301003000.000000+090"), kRead("20240229230000.000000+000"));
  EXPECT_EQ(kRead("19010101003000.000000+090"), kRead("19001231230000.000000+000"));
}

TEST(TCIMDateTime, TellsTheLocalTime) {
  for (const auto& [zone, offset] : {std::pair("XYZ-05:30", "+330"), {"TooFarAhead-24", "+000"}}) {
    setenv("TZ", zone, 1);
    tzset();
    const std::string text = TOSSpecific::GetLocalTime().ToCIMString();
    unsetenv("TZ");
    tzset();
    std::tm fields{};
    strptime(text.c_str(), "%Y%m%d%H%M%S", &fields);
    EXPECT_NEAR(timegm(&fields) - std::stol(offset) * 60, std::time(nullptr), 10) << text;
    EXPECT_EQ(text.substr(21), offset);
  }
}

}  // namespace NZELVYR20

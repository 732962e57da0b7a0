#include "TextFields.h"

#include <gtest/gtest.h>

namespace NZELVYR20 {
namespace {

using TNumber = std::optional<std::uint64_t>;

TEST(TextFields, Numbers) {
  EXPECT_EQ(TNumber(18446744073709551615U), ParseUnsigned(" 18446744073709551615\r\n"));
  for (const char* text : {"18446744073709551616", "-1", "+1", "1 2", "0x10", "", " "})
    EXPECT_EQ(TNumber(), ParseUnsigned(text)) << text;
  EXPECT_FALSE(ParseNumber<std::uint16_t>("65536"));
  EXPECT_EQ(TNumber(), Add(18446744073709551615U, 1));
  EXPECT_EQ(TNumber(), Multiply(18446744073709551615U, 2));
  EXPECT_EQ("x", Trim(std::string_view("x\n\0", 3))) << "device trees end their texts so";
}

}  // namespace
}  // namespace NZELVYR20

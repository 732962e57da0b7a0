#include <gtest/gtest.h>

#include <numeric>

#include "DisplayText.h"

namespace NZELVYR20 {
namespace {

/// What a display says, with bytes changed; the last makes the sum of all right.
std::string BuildDisplay(const std::vector<std::pair<std::size_t, std::string>>& changes = {}) {
  using namespace std::string_literals;
  std::string block(128, '\0');
  const auto put = [&block](std::size_t place, const std::string& bytes) {
    block.replace(place, bytes.size(), bytes);
  };
  put(0, "\0\xff\xff\xff\xff\xff\xff\0"s);
  put(8, "\x4d\xb0\x34\xa0\x07\0\x01\0\x01\x22"s);
  put(54, "\x01\x1d\x80\x18\x71\x38\x2d\x40"s);
  put(72, "\0\0\0\xfc\0Sample 27\n  "s);
  for (const auto& [place, bytes] : changes) put(place, bytes);
  const unsigned sum = std::accumulate(
      block.begin(), block.end(), 0U,
      [](unsigned total, char byte) { return total + static_cast<unsigned char>(byte); });
  block.back() = static_cast<char>(256 - sum % 256);
  return block;
}

std::string ShowDisplay(const std::string& edid) {
  const auto facts = ParseDisplay(edid);
  if (!facts) return "-";
  const auto size = [](const std::optional<std::uint32_t>& number) {
    return number ? std::to_string(*number) : "-";
  };
  return facts->maker + '|' + facts->product + '|' + facts->name + '|' + facts->serialNumber + '|' +
         facts->year + '|' + size(facts->width) + 'x' + size(facts->height);
}

TEST(Display, WhatItSays) {
  using namespace std::string_literals;
  EXPECT_EQ("SMP|0xa034|Sample 27|65543|2024|1920x1080", ShowDisplay(BuildDisplay()));
  EXPECT_EQ("SMP|0xa034|Sample 27|65543|2024|1920x1080",
            ShowDisplay(BuildDisplay() + "another block"));
  EXPECT_EQ("SMP|0xa034|Sample 27|S-9|2024|1920x1080",
            ShowDisplay(BuildDisplay({{90, "\0\0\0\xff\0S-9\n         "s}})));
  EXPECT_EQ("|0xa034|Sample 27||2024|1920x1080",
            ShowDisplay(BuildDisplay({{8, "\0\0"s}, {12, "\0\0\0"s}})));
  EXPECT_EQ("|0xa034|Sample 27|65543|2024|1920x1080",
            ShowDisplay(BuildDisplay({{8, "\x6d\xb0"s}})));
  EXPECT_EQ("SMP|0xa034|a?|65543||-x-",
            ShowDisplay(BuildDisplay({{17, "\0"s}, {54, "\0\0"s}, {72, "\0\0\0\xfc\0a\x1b\n"s}})));
}

TEST(Display, DamagedData) {
  const std::string whole = BuildDisplay();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ("-", ShowDisplay(whole.substr(0, size))) << size;
  }
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string damaged = whole;
    damaged[at] = static_cast<char>(damaged[at] ^ 0x55);
    EXPECT_EQ("-", ShowDisplay(damaged)) << at;
  }
  EXPECT_EQ("-", ShowDisplay(BuildDisplay({{1, "\xfe"}})));
}

}  // namespace
}  // namespace NZELVYR20

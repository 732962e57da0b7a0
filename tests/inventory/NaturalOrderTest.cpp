#include "NaturalOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace NZELVYR20 {

TEST(NaturalOrder, IsThatInWhichPeopleCount) {
  const std::vector<std::string> ordered = {"",        "0",         "1",
                                            "2",       "10",        "18446744073709551616",
                                            "CORE01",  "core1",     "core1/cpu9",
                                            "core002", "core2",     "Core10",
                                            "core10",  "core10a",   "core\xC3\xA9",
                                            "eth-1",   "eth0",      "eth0.1",
                                            "eth0.10", "\xC3\xA9th"};
  std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
  std::sort(sorted.begin(), sorted.end(), [](const std::string& left, const std::string& right) {
    return CompareNatural(left, right) < 0;
  });
  EXPECT_EQ(sorted, ordered);
  for (const auto& text : ordered) EXPECT_EQ(CompareNatural(text, text), 0) << text;
}

}  // namespace NZELVYR20

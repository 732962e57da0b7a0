#include <gtest/gtest.h>

#include "TSampleMachine.h"
#include "TSoakHost.h"
#include "TSoakWatch.h"

namespace NZELVYR20 {
namespace {

TEST(TSoakTest, MemoryIsFlatAfterTheFirstRounds) {
  const TSampleMachine machine;
  TSoakHost host(machine.GetRoot());
  // Longer than it takes the namespace to fill its list of weak pointers and prune it.
  PollAndMeasure(host, 150);
  TSoakSample first = PollAndMeasure(host, 100);
  TSoakSample second = PollAndMeasure(host, 100);
  first.resident = second.resident = 0;  // never twice the same
  EXPECT_FALSE(IsGrowth(first, second)) << first << '\n' << second;
  second.blocks += 1;
  EXPECT_TRUE(IsGrowth(first, second)) << "one block more is growth";
}

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>

#include <atomic>
#include <boost/make_shared.hpp>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TRootObject.h"
#include "TVYRException.h"
#include "UseNamespace.h"

namespace NZELVYR20 {
namespace {

constexpr int kRounds = 40;
constexpr int kMessagesPerRound = 3;

/// Makes and uses a namespace, and asks every host service on the way, round after round.
void UseNewNamespaces() {
  for (int round = 0; round < kRounds; ++round) {
    const auto space = AllocatePluginNamespace();
    EXPECT_EQ(UseNamespace(space), kAllIsWell);
    EXPECT_THROW(space->GetClass("no name", {}), TVYRException);  // logged
    AddInstance(space->GetClass("Port", {}),
                TCIMValue::Null(TCIMValue::TCIMType::kString));  // logged twice
    space->ClearInstances();
    const auto manager = TRootObject::GetNamespaceProviderManager();
    manager->RegisterNamespaceProvider(space->GetNamespaceProvider({}));
    EXPECT_EQ(manager->GetNamespaceProviderNames(), std::vector<std::string>{"inmem"});
  }
}

/// Catches what the host's own logger writes.
class TThreadsTest : public ::testing::Test {
 protected:
  TThreadsTest() : before_(std::cerr.rdbuf(written_.rdbuf())) {}
  ~TThreadsTest() override { std::cerr.rdbuf(before_); }

  int CountWholeLines() const {
    std::istringstream lines(written_.str());
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
      if (line.rfind("vyr[0] Inmem: ", 0) == 0 && line.find("vyr", 1) == std::string::npos) ++count;
    }
    return count;
  }

 private:
  std::ostringstream written_;
  std::streambuf* before_;
};

TEST_F(TThreadsTest, TwoNamespacesInTwoThreadsShareTheHostServices) {
  // Also the plug-in itself is loaded by whichever thread is first.
  std::thread other(UseNewNamespaces);
  UseNewNamespaces();
  other.join();
  EXPECT_EQ(CountWholeLines(), 2 * kRounds * kMessagesPerRound);
}

TEST_F(TThreadsTest, TheLoggerMayBeExchangedWhileAnotherThreadLogs) {
  struct TCountingLogger : ICoreLogger {
    explicit TCountingLogger(std::atomic<int>& counter) : count(counter) {}
    void Log(int, const std::string&) override { ++count; }
    std::atomic<int>& count;
  };
  std::atomic<int> counted{0};
  std::atomic<bool> isDone{false};
  std::thread exchanging([&] {
    while (!isDone) {
      TRootObject::SetCoreLogger(boost::make_shared<TCountingLogger>(counted));
      TRootObject::SetCoreLogger({});
      TRootObject::SetLogThreshold(3);
    }
  });
  UseNewNamespaces();
  isDone = true;
  exchanging.join();
  EXPECT_EQ(counted + CountWholeLines(), kRounds * kMessagesPerRound);
}

}  // namespace
}  // namespace NZELVYR20

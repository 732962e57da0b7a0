#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <boost/make_shared.hpp>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>

#include "ICIMProperty.h"
#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

constexpr int kRounds = 40;
constexpr int kMessagesPerRound = 3;

/// The text of the status with which the operation fails.
template <class TOperation>
std::string FailureOf(TOperation operation) {
  try {
    operation();
  } catch (const TVYRException& failure) {
    return failure.what();
  }
  return "no failure";
}

/// Makes and uses a namespace, asks every host service on the way, and tells what it saw.
std::string UseNamespace() {
  const auto space = AllocatePluginNamespace();
  std::ostringstream seen;
  const auto port = AddClass(space, "Port", "");
  const auto link = AddClass(space, "Link", TCIMValue::NullReference(port));
  const auto instance = AddInstance(port, "a");
  AddInstance(link, instance->GetReference({}));
  instance->EnumerateAssociationInstances(
      [&seen](const boost::shared_ptr<ICIMInstance>& found) {
        seen << found->GetReference({}).ToString() << '\n';
        return true;
      },
      "", "", {});
  seen << instance->GetProperty("HealthState", {})->ToString() << '\n';
  seen << FailureOf([&] { space->GetClass("no name", {}); }) << '\n';  // logged
  seen << FailureOf([&] { space->GetClass("Nothing", {}); }) << '\n';
  AddInstance(port, TCIMValue::Null(TCIMValue::TCIMType::kString));  // logged twice
  const auto path = TCIMReference::Parse("link.ID=\"Port.Id=\\\"a\\\"\"", space);
  seen << (space->GetInstance(path, {}) ? "found" : "lost") << '\n';
  space->ClearInstances();
  const auto manager = TRootObject::GetNamespaceProviderManager();
  manager->RegisterNamespaceProvider(space->GetNamespaceProvider({}));
  for (const std::string& name : manager->GetNamespaceProviderNames()) seen << name << '\n';
  return seen.str();
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
  std::array<std::string, 2> seen;
  const auto work = [](std::string& all) {
    for (int round = 0; round < kRounds; ++round) all += UseNamespace();
  };
  std::thread other(work, std::ref(seen[1]));
  work(seen[0]);
  other.join();

  EXPECT_EQ(CountWholeLines(), 2 * kRounds * kMessagesPerRound);
  const std::string alone = UseNamespace();
  EXPECT_EQ(alone,
            "Link.Id=\"Port.Id=\\\"a\\\"\"\n0\nThe name is not a valid CIM name.\n"
            "The element was not found.\nfound\ninmem\n");
  std::string expected;
  for (int round = 0; round < kRounds; ++round) expected += alone;
  EXPECT_EQ(seen[0], expected);
  EXPECT_EQ(seen[1], expected);
}

/// Counts; may be called from any thread.
class TCountingLogger : public ICoreLogger {
 public:
  explicit TCountingLogger(std::atomic<int>& count) : count_(count) {}
  void Log(int, const std::string&) override { ++count_; }

 private:
  std::atomic<int>& count_;
};

TEST_F(TThreadsTest, TheLoggerMayBeExchangedWhileAnotherThreadLogs) {
  std::atomic<int> counted{0};
  std::atomic<bool> isDone{false};
  std::thread exchanging([&] {
    while (!isDone) {
      TRootObject::SetCoreLogger(boost::make_shared<TCountingLogger>(counted));
      TRootObject::SetCoreLogger({});
      TRootObject::SetLogThreshold(3);
    }
  });
  for (int round = 0; round < kRounds; ++round) UseNamespace();
  isDone = true;
  exchanging.join();
  EXPECT_EQ(counted + CountWholeLines(), kRounds * kMessagesPerRound);
}

}  // namespace
}  // namespace NZELVYR20

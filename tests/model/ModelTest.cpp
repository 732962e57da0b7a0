#include <gtest/gtest.h>
#include <pthread.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <thread>

#include "CheckIndex.h"
#include "TFaults.h"
#include "TGenerator.h"
#include "TInmemClass.h"
#include "TInmemNamespaceProvider.h"
#include "TModelNamespace.h"

namespace NZELVYR20 {
namespace {

using TClock = std::chrono::steady_clock;

const bool kTraces = std::getenv("MODEL_TRACE") != nullptr;

struct TStreamingLogger : ICoreLogger {
  std::ostringstream* out = nullptr;
  void Log(int level, const std::string& message) override {
    if (TFaults::Strikes(TFaults::EKind::kLog)) throw std::runtime_error("log");
    *out << "\n  log [" << level << "] " << message << '\n';
  }
};

/// Where the two sides first differ, and what each of them showed there.
struct TDifference {
  std::string plugin, model;
};

TPtr<ICIMNamespace> AllocateInPlugin(bool redefines) {
  return TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, redefines);
}

/// A step that ends its thread has one of its own.
void DoInThread(TWorld& world, const TStep& step) {
  bool isDone = false;
  std::thread([&] {
    try {
      world.Do(step);
      isDone = true;
    } catch (const TThreadEnd&) {
    }
  }).join();
  if (!isDone) world.out << " the thread ends";
}

bool EndsThread(const TStep& step) { return step.flag == kEndsThread; }

/// A script on both sides at once.
class TComparison {
 public:
  explicit TComparison(const TScript& script) {
    const auto isFault = [](const TStep& step) { return step.fault > 0; };
    plugin_.isStarved = std::any_of(script.begin(), script.end(), isFault);
    model_.isStarved = plugin_.isStarved;
    model_.isModel = true;
    TRootObject::SetCoreLogger(logger_);
    plugin_.allocate = AllocateInPlugin;
    plugin_.meet = [this](TWorld::TNumber number, ICIMClass& met) { addresses_[number] = &met; };
    plugin_.endThread = [] { pthread_exit(nullptr); };
    model_.allocate = TModelNamespace::Allocate;
    model_.meet = [this](TWorld::TNumber number, ICIMClass& met) {
      static_cast<TModelClass&>(met).identity = addresses_[number];
    };
    model_.endThread = [] { throw TThreadEnd(); };
    for (TWorld* world : {&plugin_, &model_}) {
      world->showsTexts = false;
      world->out.exceptions(std::ios::badbit);  // or it would keep lack of memory to itself
      const auto host = boost::make_shared<TModelHost>();
      host->answer = [world](const TCIMReference& path) { return world->Answer(path); };
      world->n[2] = host;
    }
  }

  /// The step at that place of the script; callbacks do those that follow.
  std::optional<TDifference> Do(const TScript& script, std::size_t at) {
    const TStep& step = script[at];
    const auto after = script.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    const auto inner = after + std::min<std::ptrdiff_t>(step.inner, script.end() - after);
    const bool isStarved =
        step.fault > 0 && step.inner == 0 && !MayDeclare(step) && !EndsThread(step);
    const EEnd end = isStarved ? Starve(step) : EEnd::kSwallowed;
    if (end == EEnd::kFailed && IsGivenUp(step)) return Compare([](TWorld&) {});
    return Compare([&](TWorld& world) {
      world.following.assign(after, inner);
      if (end == EEnd::kDone && &world == &plugin_) return;
      const bool endsThread = EndsThread(step) || std::any_of(after, inner, EndsThread);
      endsThread ? DoInThread(world, step) : world.Do(step);
    });
  }

  /// When nobody holds anything any more, nothing is left.
  std::optional<TDifference> End() {
    return Compare([this](TWorld& world) {
      world.Clear();
      world.ShowGone();
      if (&world == &plugin_ && !world.seen.empty()) world.out << " left: " << world.seen.size();
    });
  }

 private:
  using EKind = TFaults::EKind;

  enum class EEnd { kDone, kFailed, kSwallowed };

  /// The step in the plug-in alone, with too little memory or a failing logger. What fails leaves
  /// all as it was; what swallows the failure has to answer the same when it is repeated. What asks
  /// C for memory can mostly do without, and then all goes well.
  EEnd Starve(const TStep& step) {
    constexpr EKind kKinds[] = {EKind::kNew, EKind::kNew, EKind::kLog, EKind::kC};
    const TAllRegisters before = plugin_;
    const auto next = plugin_.next;
    plugin_.following.clear();
    logger_->out = &plugin_.out;
    EEnd end = EEnd::kSwallowed;
    const EKind kind = kKinds[step.fault / 2 % 4];
    TFaults::Arm(kind, step.fault / 8);
    try {
      plugin_.Do(step);
    } catch (const std::bad_alloc&) {
      end = EEnd::kFailed;
    } catch (const std::runtime_error&) {
      end = EEnd::kFailed;
    }
    const bool isStruck = TFaults::Disarm() && kind != EKind::kC;
    if (end == EEnd::kSwallowed && !isStruck) return EEnd::kDone;
    if (end == EEnd::kSwallowed && !MaySwallow(step)) swallowed_ = plugin_.out.str();
    static_cast<TAllRegisters&>(plugin_) = before;
    plugin_.Forget(next);
    plugin_.out.clear();
    plugin_.out.str("");
    return end;
  }
  static bool Has(const TStep& step, const char* part) {
    return Contains(kOperations[step.operation].text, part);
  }
  /// Walks by a role declare it where it is missing: that cannot be repeated.
  static bool MayDeclare(const TStep& step) {
    return (step.value % 2 != 0 || step.flag % 2 != 0) && Has(step, "w.I()->EnumerateAssoc");
  }
  /// To walks, those of this test's included, and to the look-up for a class that is there already
  /// a failure may count as a miss; what shows before it changes need not show the same again.
  static bool MaySwallow(const TStep& step) {
    return IsWalk(step.operation) || Has(step, "ShowClass") || Has(step, "AllocateClass") ||
           Has(step, "UseProperty");
  }
  static bool IsGivenUp(const TStep& step) {
    return step.fault % 2 == 1 && kOperations[step.operation].kind != TOperation::kShows;
  }

  std::optional<TDifference> Compare(const std::function<void(TWorld&)>& run) {
    for (TWorld* world : {&plugin_, &model_}) {
      logger_->out = &world->out;
      run(*world);
      if (world == &plugin_) CheckIndexes();
      world->ShowGone();
      if (kTraces) std::cerr << "    " << world->out.str() << std::endl;
    }
    const TDifference shown{plugin_.out.str(), model_.out.str()};
    plugin_.out.str(""), model_.out.str("");
    if (shown.plugin == shown.model) return {};
    return shown;
  }
  /// What is not as it must be inside the plug-in, which the model cannot tell.
  void CheckIndexes() {
    const auto swallowed = std::exchange(swallowed_, {});
    if (swallowed && *swallowed != plugin_.out.str()) {
      plugin_.out << " but with a fault " << *swallowed;
    }
    for (const auto& known : plugin_.classes) {
      const auto cimClass = known.lock();
      if (cimClass) plugin_.out << CheckIndex(static_cast<const TInmemClass&>(*cimClass));
    }
  }

  const boost::shared_ptr<TStreamingLogger> logger_ = boost::make_shared<TStreamingLogger>();
  std::map<TWorld::TNumber, const void*> addresses_;
  TWorld plugin_, model_;
  std::optional<std::string> swallowed_;  ///< what it answered nevertheless
};

std::optional<TDifference> RunOnce(const TScript& script) {
  TComparison sides(script);
  for (std::size_t at = 0; at < script.size(); ++at) {
    if (kTraces) std::cerr << at << ": " << ToText(script[at]) << std::endl;
    if (auto difference = sides.Do(script, at)) return difference;
  }
  return sides.End();
}

/// Where blocks of memory are left, what is made once for the process may be among them.
std::optional<TDifference> Compare(const TScript& script) {
  for (const bool isFirst : {true, false}) {
    const long live = TFaults::CountLiveAllocations();
    if (auto difference = RunOnce(script)) return difference;
    TRootObject::SetCoreLogger({});
    const long left = TFaults::CountLiveAllocations() - live;
    if (left == 0) break;
    if (!isFirst) return TDifference{std::to_string(left) + " blocks leak", ""};
  }
  return {};
}

/// Takes away runs of steps, long ones first, as long as a difference stays.
TScript Shrink(TScript script) {
  const auto end = TClock::now() + std::chrono::seconds(20);
  for (std::size_t run = script.size() / 2; run > 0;) {
    bool shrank = false;
    for (std::size_t at = 0; at + run <= script.size() && TClock::now() < end;) {
      TScript shorter = script;
      shorter.erase(shorter.begin() + at, shorter.begin() + at + run);
      if (!Compare(shorter)) {
        at += run;
        continue;
      }
      script = shorter;
      shrank = true;
    }
    if (!shrank) run /= 2;
  }
  return script;
}

std::string Report(const TScript& script) {
  std::string text;
  for (const TStep& step : script) text += ToText(step) + '\n';
  const auto difference = Compare(script);
  if (!difference) return text;
  return text + "plug-in: " + difference->plugin + "\nmodel: " + difference->model;
}

void Check(unsigned seed, std::size_t steps) {
  if (kTraces) std::cerr << "seed " << seed << std::endl;
  const TScript script = TGenerator(seed).Make(steps);
  if (!Compare(script)) return;
  ADD_FAILURE() << "seed " << seed << "\n" << Report(Shrink(script));
}

unsigned Setting(const char* name, unsigned otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::stoul(text));
}

TEST(ModelTest, PluginDoesWhatTheModelDoes) {
  const unsigned steps = Setting("MODEL_STEPS", 800);
  const auto end = TClock::now() + std::chrono::seconds(Setting("MODEL_SECONDS", 0));
  unsigned seed = Setting("MODEL_FIRST_SEED", 1);
  unsigned done = 0;
  do {
    Check(seed++, steps);
    ++done;
  } while (!HasFailure() && (done < Setting("MODEL_SEEDS", 100) || TClock::now() < end));
  std::cout << done << " seeds to " << seed - 1 << ", " << done * steps << " steps\n";
}

/// Whatever a callback lets go of, the walk holds what it needs of it, and no longer than that.
TEST(ModelTest, EveryWalkMayLoseEverything) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    for (TStep walk : TGenerator(seed).MakeWalks()) {
      SCOPED_TRACE(ToText(walk));
      TWorld world;
      world.allocate = AllocateInPlugin;
      const auto logger = boost::make_shared<TStreamingLogger>();
      logger->out = &world.out;
      TRootObject::SetCoreLogger(logger);
      for (const TStep& step : TGenerator(seed).Make(0)) world.Do(step);
      world.following = {{FindRow("Clear"), 0, 0, 0, 0, 1, 0, 0, 0}};
      world.Do(walk);
      world.Clear();
      world.ShowGone();
      EXPECT_TRUE(world.seen.empty());
      TRootObject::SetCoreLogger({});
    }
  }
}

}  // namespace
}  // namespace NZELVYR20

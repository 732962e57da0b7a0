#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <random>

#include "CheckIndex.h"
#include "Operations.h"
#include "TInmemClass.h"
#include "TInmemNamespaceProvider.h"
#include "TModel.h"

namespace NZELVYR20 {
namespace {

using TScript = std::vector<TStep>;
using TClock = std::chrono::steady_clock;

struct TStreamingLogger : ICoreLogger {
  std::ostringstream* out = nullptr;
  void Log(int level, const std::string& message) override {
    *out << "\n  log [" << level << "] " << message << '\n';
  }
};

/// Where the two sides first differ, and what each of them showed there.
struct TDifference {
  std::size_t step;
  std::string plugin, model;
};

std::string ValueText(int value) {
  const int at = value % 32;
  const std::string from = std::to_string(value / 32 & 7);
  if (at < kConstants) return TWorld::ValueText(GetConstants()[at]);
  if (at < kReference) return "null reference to c" + from;
  if (at == 28) return "array of a reference to c" + from;
  if (at > 28) return "n" + std::to_string(value / 256) + ": c" + from + (at == 29 ? ".a" : ".b");
  return "reference to i" + from + (at == 27 ? " of the superclass" : "");
}

std::string ToText(const TStep& s) {
  const auto quoted = [](const std::string& text) { return '"' + text + '"'; };
  const auto in = [&](const TPool& pool) { return quoted(pool[s.name % pool.size()]); };
  const auto maybe = [&](const TPool& pool, int at) { return quoted(TWorld::Maybe(pool, at)); };
  const std::map<char, std::string> fields = {
      {'a', std::to_string(s.a)},
      {'b', std::to_string(s.b)},
      {'n', std::to_string(s.name & 7)},
      {'f', std::to_string(s.flag)},
      {'F', std::to_string(s.flag & 7)},
      {'N', "n" + std::to_string(s.space)},
      {'V', ValueText(s.value)},
      {'C', in(kClasses)},
      {'P', in(kProperties)},
      {'M', in(kMethods)},
      {'Q', in(kQualifiers)},
      {'E', std::string(1, "cdm"[s.b % 3]) + std::to_string(s.a)},
      {'1', maybe(kClasses, s.name)},
      {'2', maybe(kProperties, s.value)},
      {'3', quoted(kClasses[s.a * s.a / 8])},
      {'4', maybe(kProperties, s.flag)}};
  std::string text;
  for (const char* at = kOperations[s.operation].pattern; *at != 0; ++at) {
    text += *at == '@' ? fields.at(*++at) : std::string(1, *at);
  }
  return text + (s.inner == 0 ? "" : " doing the next " + std::to_string(s.inner));
}

/// Shows what is not as it must be inside the plug-in, which the model cannot tell.
void AfterStep(TWorld& plugin) {
  for (const auto& known : plugin.classes) {
    const auto cimClass = known.lock();
    if (cimClass) plugin.out << CheckIndex(static_cast<const TInmemClass&>(*cimClass));
  }
}

/// A script on both sides at once.
class TComparison {
 public:
  TComparison() {
    TRootObject::SetCoreLogger(logger_);
    plugin_.allocate = [](bool redefines) {
      return TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, redefines);
    };
    plugin_.meet = [this](TWorld::TNumber number, ICIMClass& met) { addresses_[number] = &met; };
    model_.allocate = TModelNamespace::Allocate;
    model_.meet = [this](TWorld::TNumber number, ICIMClass& met) {
      static_cast<TModelClass&>(met).identity = addresses_[number];
    };
  }

  /// The step at that place of the script; callbacks do those that follow.
  std::optional<TDifference> Do(const TScript& script, std::size_t at) {
    const TStep* const step = &script[at];
    const auto left = static_cast<int>(script.size() - at) - 1;
    const auto run = [&](TWorld& world) {
      world.inner.assign(step + 1, step + 1 + std::min(step->inner, left));
      world.Do(*step);
    };
    return Compare(at, run);
  }

  /// When nobody holds anything any more, nothing is left.
  std::optional<TDifference> End(std::size_t at) {
    const auto run = [](TWorld& world) {
      world.Clear();
      world.ShowGone();
      if (!world.seen.empty()) world.out << " left: " << world.seen.size();
    };
    auto difference = Compare(at, run);
    if (!difference && !plugin_.seen.empty()) return TDifference{at, plugin_.out.str(), ""};
    return difference;
  }

 private:
  std::optional<TDifference> Compare(std::size_t at, const std::function<void(TWorld&)>& run) {
    static const bool traces = std::getenv("MODEL_TRACE") != nullptr;
    for (TWorld* world : {&plugin_, &model_}) {
      logger_->out = &world->out;
      world->out.str("");
      run(*world);
      world->ShowGone();
      if (world == &plugin_) AfterStep(plugin_);
      if (traces) std::cerr << "    " << world->out.str() << std::endl;
    }
    if (plugin_.out.str() == model_.out.str()) return {};
    return TDifference{at, plugin_.out.str(), model_.out.str()};
  }

  const boost::shared_ptr<TStreamingLogger> logger_ = boost::make_shared<TStreamingLogger>();
  std::map<TWorld::TNumber, const void*> addresses_;
  TWorld plugin_, model_;
};

std::optional<TDifference> Compare(const TScript& script) {
  static const bool traces = std::getenv("MODEL_TRACE") != nullptr;
  TComparison sides;
  for (std::size_t at = 0; at < script.size(); ++at) {
    if (traces) std::cerr << at << ": " << ToText(script[at]) << std::endl;
    if (auto difference = sides.Do(script, at)) return difference;
  }
  return script.empty() ? std::nullopt : sides.End(script.size() - 1);
}

class TGenerator {
 public:
  explicit TGenerator(unsigned seed) : random_(seed) {}

  TScript Make(std::size_t size) {
    for (space_ = 0; space_ < 2; ++space_) MakeSpace();
    std::vector<int> lots;
    for (const TOperation& operation : kOperations) {
      const int row = static_cast<int>(&operation - kOperations);
      lots.insert(lots.end(), operation.weight, row);
      if (Contains(operation.pattern, "conduct")) walks_.push_back(row);
    }
    while (script_.size() < size) {
      space_ = Draw(4) == 0 ? 1 : 0;
      const int recipe = Draw(60);
      if (recipe == 0) DefineClass(Draw(8));
      if (recipe > 0 && recipe < 4) PutInstance(Draw(8));
      if (recipe == 4) Draw(2) == 0 ? WalkAndAct() : WalkAndRelink();
      if (recipe == 5 && Draw(4) == 0) UseRoot(Draw(8));
      if (recipe == 6 && Draw(6) == 0) ReplaceSpace();
      const int operation = lots[Draw(static_cast<unsigned>(lots.size()))];
      const int name = Draw(3) == 0 ? Draw(1000) : Draw(6);
      if (recipe > 6)
        Add(operation, Draw(8), Draw(8), name, Draw(3) == 0 ? 0 : Draw(512), Draw(32));
      if (recipe > 6 && Draw(8) == 0) script_.back().inner = 1 + Draw(2);
    }
    return script_;
  }

 private:
  int Draw(unsigned below) { return static_cast<int>(random_() % below); }
  void Add(int operation, int a, int b, int name, int value, int flag) {
    script_.push_back({operation, a, b, name, value, flag, space_, 0});
  }

  void MakeSpace() {
    Add(kSpace, 0, 0, 0, 0, 1 + Draw(2));
    for (int q = 0; q < 8; ++q) {
      Add(kDeclare, q, 0, q, 0, q < 4 && Draw(4) != 0 ? 3 : Draw(8));
      Add(kAddDeclared, q, 0, 0, 0, 0);
    }
    if (Draw(2) == 0) Redefine();
    for (int c = 0; c < 8; ++c) {
      if (space_ == 0 || Draw(2) == 0) DefineClass(c);
    }
    for (int i = 0; i < 8; ++i) {
      if (space_ == 0 || Draw(2) == 0) PutInstance(i);
    }
  }

  /// Most of what there is stands in the first one.
  void ReplaceSpace() {
    space_ = Draw(4) == 0 ? 0 : 1;
    Add(kSpace, 0, 0, 0, 0, 0);
    if (space_ == 0 || Draw(2) == 0) MakeSpace();
  }

  void AddProperty(int c, int name, int value, bool isKey) {
    Add(kProperty, c, 0, name, value, 0);
    if (isKey) Add(kAttach, 0, 1, 0, 0, 0);
    if (Draw(3) == 0) Add(kAttach, 0, 1, 0, Draw(kConstants), Draw(6) == 0 ? 1 : 4 + Draw(4));
    Add(kAddProperty, c, 0, 0, 0, 0);
  }

  /// The last three registers are for associations.
  void DefineClass(int c) {
    const int super = Draw(4) == 0 ? Draw(c + 1) : 0;
    const int name = Draw(4) == 0 ? Draw(15) : c;
    Add(kClass, c, super, name, 0, c < 5 ? 1 : Draw(6));
    if (Draw(6) == 0) Add(kAttach, c, 0, 0, 0, 3);
    AddProperty(c, 0, 1, true);
    if (c >= 5) {
      Add(kAttach, c, 0, 0, 0, 2);
      AddProperty(c, 1, kConstants + 32 * (Draw(4) == 0 ? Draw(5) : 0), Draw(2) == 0);
      AddProperty(c, 2, kConstants + 32 * (Draw(4) == 0 ? Draw(5) : 0), Draw(2) == 0);
    }
    const int again = 7 + Draw(6);
    for (int i = 0; i < Draw(3); ++i) AddProperty(c, again, 1 + Draw(3), false);
    Add(kMethod, c, 0, Draw(4), 0, Draw(2));
    if (Draw(2) == 0) Add(kAttach, 0, 2, 0, 0, 1);
    Add(kAddMethod, c, 0, 0, 0, 0);
    Add(kAddClass, c, 0, 0, 0, 0);
  }

  /// Only a class that was made before its namesake was added can take its place. It has other
  /// subclasses then and gets more.
  void Redefine() {
    const int name = 3 + Draw(2);
    for (const int c : {1, 2}) {
      Add(kClass, c, 0, Draw(3) == 0 ? 9 + 5 * (name - 3) : name, 0, Draw(2));
      AddProperty(c, 0, 1, true);
    }
    for (int i = 0; i < 6; ++i) {
      const int c = 1 + Draw(2);
      Add(kAddClass, c, 0, 0, 0, 0);
      Add(kClass, 3, c, 5 + Draw(5), 0, 1);
      if (Draw(3) != 0) Add(kAddClass, 3, 0, 0, 0, 0);
      Add(kSubClasses, c, Draw(2), 0, 0, 0);
    }
  }

  /// The last three registers are for instances of associations.
  void PutInstance(int i) {
    if (i < 5) return AddInstance(i, Draw(5), 1 + Draw(2));
    const int near = Draw(5);
    PutAssociation(i, 5 + Draw(3), 1 + Draw(2), near);
    Add(kReferences, 0, near, Sometimes(32), Sometimes(16), Draw(8));
    Add(kAssociators, Draw(8), near, Sometimes(32), Sometimes(16), Sometimes(32));
  }
  void PutAssociation(int i, int c, int name, int near) {
    const int far = Draw(5);
    for (const int end : {near, far}) Add(kGetInstance, 0, end, 0, kReference + 32 * end, 0);
    AddInstance(i, c, name);
    Add(kSet, 0, i, 1, Reference(near), 0);
    Add(kSet, 0, i, 2, Reference(far), 0);
    Add(kAddInstance, 0, i, 0, 0, 0);
  }
  void AddInstance(int i, int c, int name) {
    Add(kInstance, c, i, 0, 0, 0);
    Add(kSet, 0, i, 0, name, 0);
    Add(kAddInstance, 0, i, 0, 0, 0);
  }
  int Sometimes(unsigned below) { return Draw(3) == 0 ? Draw(below) : 0; }
  int Reference(int i) { return kReference + (Draw(8) == 0 ? Draw(8) : 0) + 32 * i; }

  /// A walk that takes out, puts in again or changes what it visits, or something else.
  void WalkAndAct() {
    static constexpr int kActs[] = {kDelete,      kAddInstance, kSet,    kRemoveClass,    kAddClass,
                                    kAssociators, kAddProperty, kForget, kRemoveProperty, kSpace};
    const int walk = walks_[Draw(static_cast<unsigned>(walks_.size()))];
    const int b = Draw(8);
    Walk(walk, b);
    for (int act = 0; act < 2; ++act) {
      Add(kActs[Draw(Draw(4) == 0 ? 10 : 9)], b, b, Draw(3), Reference(Draw(8)), Draw(8));
    }
  }
  void Walk(int walk, int b) {
    Add(walk, Draw(8), b, Draw(2) * Draw(32), Draw(2) * Draw(512), Draw(4) == 0 ? Draw(8) : 0);
    script_.back().inner = 1 + Draw(2);
  }

  /// A walk along several instances of one association, which lead elsewhere meanwhile.
  void WalkAndRelink() {
    const int near = Draw(5);
    const int c = 5 + Draw(3);
    for (const int i : {5, 6, 7}) {
      PutAssociation(i, c, i < 7 ? i - 4 : 14, Draw(3) == 0 ? Draw(5) : near);
    }
    Walk(Draw(2) == 0 ? kReferences : kAssociators, near);
    for (int act = 0; act < 2; ++act) {
      const int acts[] = {kDelete, kAddInstance, kSet, kSet, kSet};
      const int to = Draw(2) == 0 ? near : Draw(5);
      Add(acts[Draw(5)], 0, 5 + Draw(3), 1 + Draw(2), Reference(to), Draw(8));
    }
  }

  void UseRoot(int c) {
    Add(kGetClass, c, 0, 10, 0, 0);
    AddProperty(c, Draw(2) * Draw(20), 1 + Draw(2), Draw(2) == 0);
    Add(kAttach, c, 0, 0, 0, Draw(4));
    Add(kInstance, c, Draw(5), 0, 0, 0);
    Add(kAddInstance, 0, script_.back().b, 0, 0, 0);
    if (Draw(2) == 0) Add(kClass, c, 0, 10 + 2 * Draw(2), 0, 0);
  }

  std::mt19937 random_;
  int space_ = 0;
  std::vector<int> walks_;
  TScript script_;
};

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

/// The script in words; what stands behind the hash is what MODEL_SCRIPT reads back.
std::string Report(const TScript& script) {
  std::ostringstream text;
  for (const TStep& s : script) {
    text << ToText(s) << "  #" << s.operation << ' ' << s.a << ' ' << s.b << ' ' << s.name << ' '
         << s.value << ' ' << s.flag << ' ' << s.space << ' ' << s.inner << '\n';
  }
  const auto difference = Compare(script);
  if (difference) text << "plug-in: " << difference->plugin << "\nmodel: " << difference->model;
  return text.str();
}

/// A failed assertion ends the process: at least it tells where to look, with MODEL_TRACE=1.
std::string seedInHand;
extern "C" void TellSeed(int) {
  if (write(STDERR_FILENO, seedInHand.data(), seedInHand.size()) < 0) return;
}

void Check(unsigned seed, std::size_t steps) {
  seedInHand = "in seed " + std::to_string(seed) + "\n";
  const TScript script = TGenerator(seed).Make(steps);
  if (!Compare(script)) return;
  ADD_FAILURE() << "seed " << seed << "\n" << Report(Shrink(script));
}

unsigned Setting(const char* name, unsigned otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : static_cast<unsigned>(std::stoul(text));
}

class ModelTest : public testing::Test {
 protected:
  void TearDown() override { TRootObject::SetCoreLogger({}); }
};

TEST_F(ModelTest, PluginDoesWhatTheModelDoes) {
  const unsigned steps = Setting("MODEL_STEPS", 800);
  const auto end = TClock::now() + std::chrono::seconds(Setting("MODEL_SECONDS", 0));
  unsigned seed = Setting("MODEL_FIRST_SEED", 1);
  unsigned done = 0;
  std::signal(SIGABRT, TellSeed);
  do {
    Check(seed++, steps);
    ++done;
  } while (!HasFailure() && (done < Setting("MODEL_SEEDS", 100) || TClock::now() < end));
  std::cout << done << " seeds to " << seed - 1 << ", " << done * steps << " steps\n";
}

TEST_F(ModelTest, ScriptReplays) {
  const char* const name = std::getenv("MODEL_SCRIPT");
  if (name == nullptr) GTEST_SKIP() << "MODEL_SCRIPT names no script";
  std::ifstream file(name);
  TScript script;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind('#') == std::string::npos) continue;
    std::istringstream numbers(line.substr(line.rfind('#') + 1));
    TStep s{};
    numbers >> s.operation >> s.a >> s.b >> s.name >> s.value >> s.flag >> s.space >> s.inner;
    if (numbers) script.push_back(s);
  }
  EXPECT_FALSE(Compare(script)) << Report(script);
}

}  // namespace
}  // namespace NZELVYR20

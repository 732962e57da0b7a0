#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <optional>
#include <random>

#include "PluginNamespace.h"
#include "TTwoSides.h"

namespace NZELVYR20 {
namespace {

using TClock = std::chrono::steady_clock;

struct TStreamingLogger : ICoreLogger {
  std::ostringstream* out = nullptr;
  void Log(int level, const std::string& message) override {
    *out << "\n  log [" << level << "] " << message << '\n';
  }
};

template <class TSide, class TRun>
std::string Run(TStreamingLogger& logger, TWorld<TSide>& world, const TStep& step,
                const TRun& run) {
  logger.out = &world.out;
  try {
    run(world, step);
  } catch (const TVYRException& failure) {
    world.out << " status " << failure.GetStatusCode();
  } catch (const TNothingThere&) {
    world.out << " nothing there";
  } catch (int) {
    world.out << " thrown by the callback";
  }
  std::string text = world.out.str();
  world.out.str("");
  return text;
}

/// Where the two sides first differ, and what each of them showed there.
struct TDifference {
  std::size_t step;
  std::string plugin, model;
};

std::optional<TDifference> Compare(const TScript& script, bool redefines) {
  static const bool traces = std::getenv("MODEL_TRACE") != nullptr;
  const auto logger = boost::make_shared<TStreamingLogger>();
  std::ostringstream before;
  logger->out = &before;
  TRootObject::SetCoreLogger(logger);
  TModelNamespace modelSpace(redefines);
  TWorld<TPluginSide> plugin{
      AllocatePluginNamespace(redefines), {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  TWorld<TModelSide> model{&modelSpace, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}};
  const auto meet = [&](const boost::shared_ptr<ICIMClass>& handle, TModelClass* met) {
    if (!handle || met == nullptr || met->handle) return;
    met->handle = handle;
    modelSpace.byHandle[handle.get()] = met;
  };
  meet(plugin.space->GetClass("", {}), modelSpace.root);
  for (std::size_t at = 0; at < script.size(); ++at) {
    const TStep& step = script[at];
    if (traces) std::cerr << at << ": " << ToText(step) << std::endl;
    logger->out = &before;
    try {
      plugin.value = model.value = MakeValue(plugin, model, step);
    } catch (const TVYRException&) {
      continue;
    } catch (const TNothingThere&) {
      continue;
    }
    const TOperation& operation = GetOperations()[step.operation];
    const std::string onPlugin = Run(*logger, plugin, step, operation.onPlugin);
    const std::string onModel = Run(*logger, model, step, operation.onModel);
    if (onPlugin != onModel) return TDifference{at, onPlugin, onModel};
    meet(plugin.c[step.a], model.c[step.a]);
  }
  return {};
}

class TGenerator {
 public:
  explicit TGenerator(unsigned seed) : random_(seed) {}

  TScript Make(std::size_t size) {
    for (int q = 0; q < 8; ++q) {
      Add("declare", q, 0, q, 0, q < 4 && Draw(4) != 0 ? 3 : Draw(8));
      Add("adddeclared", q, 0, 0, 0, 0);
    }
    while (script_.size() < size) {
      const int recipe = Draw(40);
      if (recipe == 0) DefineClass(Draw(8));
      if (recipe == 1 || recipe == 2) PutInstance(Draw(8));
      if (recipe > 2) Add(nullptr, Draw(8), Draw(8), Draw(1000), Draw(320), Draw(32));
    }
    return script_;
  }

 private:
  int Draw(unsigned below) { return static_cast<int>(random_() % below); }

  /// The operation of that code; without one, any.
  void Add(const char* code, int a, int b, int name, int value, int flag) {
    static const std::vector<int> lots = [] {
      std::vector<int> drawn;
      for (std::size_t i = 0; i < GetOperations().size(); ++i) {
        drawn.insert(drawn.end(), GetOperations()[i].weight, static_cast<int>(i));
      }
      return drawn;
    }();
    int operation = lots[random_() % lots.size()];
    for (std::size_t i = 0; code != nullptr && i < GetOperations().size(); ++i) {
      if (std::strcmp(GetOperations()[i].code, code) == 0) operation = static_cast<int>(i);
    }
    script_.push_back({operation, a, b, name, value, flag});
  }

  void AddProperty(int c, int name, int value, bool isKey) {
    Add("property", c, 0, name, value, 0);
    if (isKey) Add("attach", 0, 1, 0, 0, 0);
    if (Draw(3) == 0) Add("attach", 0, 1, 0, Draw(24), Draw(8));
    Add("addproperty", c, 0, 0, 0, 0);
  }

  /// The last three registers are for associations.
  void DefineClass(int c) {
    Add("class", c, Draw(8), Draw(16), 0, Draw(6));
    if (Draw(4) == 0) Add("attach", c, 0, 0, 0, 3);
    AddProperty(c, Draw(2), 1, true);
    if (c >= 5) {
      Add("attach", c, 0, 0, 0, 2);
      AddProperty(c, 4, 24 + 40 * Draw(5), Draw(2) == 0);
      AddProperty(c, 5, 24 + 40 * Draw(5), Draw(2) == 0);
    }
    Add("method", c, 0, Draw(4), 0, Draw(2));
    Add("addmethod", c, 0, 0, 0, 0);
    Add("addclass", c, 0, 0, 0, 0);
  }

  void PutInstance(int i) {
    Add("instance", i < 5 ? Draw(5) : 5 + Draw(3), i, 0, 0, 0);
    Add("set", 0, i, 0, 1 + Draw(2), 0);
    if (i >= 5) {
      Add("set", 0, i, 4, 30 + Draw(10) + 40 * Draw(5), 0);
      Add("set", 0, i, 5, 30 + Draw(10) + 40 * Draw(5), 0);
    }
    Add("addinstance", 0, i, 0, 0, 0);
  }

  std::mt19937 random_;
  TScript script_;
};

/// Takes away runs of steps, long ones first, as long as a difference stays.
TScript Shrink(TScript script, bool redefines) {
  const auto end = TClock::now() + std::chrono::seconds(20);
  script.resize(Compare(script, redefines)->step + 1);
  for (std::size_t run = script.size() / 2; run > 0;) {
    bool shrank = false;
    for (std::size_t at = 0; at + run <= script.size() && TClock::now() < end;) {
      TScript shorter = script;
      shorter.erase(shorter.begin() + at, shorter.begin() + at + run);
      const auto difference = Compare(shorter, redefines);
      if (!difference) {
        at += run;
        continue;
      }
      shorter.resize(difference->step + 1);
      script = shorter;
      shrank = true;
    }
    if (!shrank) run /= 2;
  }
  return script;
}

/// The script in words; what stands behind the hash is what MODEL_SCRIPT reads back.
std::string Report(const TScript& script, bool redefines) {
  std::ostringstream text;
  text << (redefines ? "redefinition" : "no redefinition") << " #" << redefines << '\n';
  for (const TStep& s : script) {
    text << ToText(s) << "  #" << s.operation << ' ' << s.a << ' ' << s.b << ' ' << s.name << ' '
         << s.value << ' ' << s.flag << '\n';
  }
  const auto difference = Compare(script, redefines);
  if (difference) text << "plug-in: " << difference->plugin << "\nmodel: " << difference->model;
  return text.str();
}

void Check(unsigned seed, std::size_t steps) {
  const bool redefines = seed % 2 == 1;
  const TScript script = TGenerator(seed).Make(steps);
  if (!Compare(script, redefines)) return;
  ADD_FAILURE() << "seed " << seed << ", " << Report(Shrink(script, redefines), redefines);
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
  const unsigned steps = Setting("MODEL_STEPS", 3000);
  const auto end = TClock::now() + std::chrono::seconds(Setting("MODEL_SECONDS", 0));
  unsigned seed = Setting("MODEL_FIRST_SEED", 1);
  unsigned done = 0;
  do {
    Check(seed++, steps);
    ++done;
  } while (!HasFailure() && (done < Setting("MODEL_SEEDS", 8) || TClock::now() < end));
  std::cout << done << " seeds to " << seed - 1 << ", " << done * steps << " steps\n";
}

TEST_F(ModelTest, ScriptReplays) {
  std::ifstream file(std::getenv("MODEL_SCRIPT") == nullptr ? "" : std::getenv("MODEL_SCRIPT"));
  TScript script;
  bool redefines = false;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind('#') == std::string::npos) break;
    std::istringstream numbers(line.substr(line.rfind('#') + 1));
    TStep s{};
    if (numbers >> s.operation >> s.a >> s.b >> s.name >> s.value >> s.flag)
      script.push_back(s);
    else
      redefines = s.operation == 1;
  }
  EXPECT_FALSE(Compare(script, redefines)) << Report(script, redefines);
}

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <optional>
#include <random>
#include <stdexcept>

#include "Operations.h"
#include "PluginNamespace.h"

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

/// What the step in hand shows, and how it ends.
template <bool kIsModel>
std::string Run(TStreamingLogger& logger, TWorld<kIsModel>& world,
                void (*operation)(TWorld<kIsModel>&)) {
  logger.out = &world.out;
  world.out.str("");
  try {
    operation(world);
  } catch (const TVYRException& failure) {
    world.out << " status " << failure.GetStatusCode();
  } catch (const TNothingThere&) {
    world.out << " nothing there";
  } catch (int) {
    world.out << " thrown by the callback";
  }
  return world.out.str();
}

/// Where the two sides first differ, and what each of them showed there.
struct TDifference {
  std::size_t step;
  std::string plugin, model;
};

TCIMValue Array(TType type, const std::vector<TCIMValue>& elements) {
  return TCIMValue::Array(type, elements);
}

const std::vector<TCIMValue>& GetConstants() {
  static const std::vector<TCIMValue> constants = {true,
                                                   "a",
                                                   "b",
                                                   static_cast<unsigned short>(0),
                                                   static_cast<unsigned short>(2),
                                                   TCIMValue::Null(TType::kString),
                                                   TCIMValue::Null(TType::kUInt16),
                                                   TCIMValue(),
                                                   false,
                                                   TCIMValue::Null(TType::kBoolean),
                                                   static_cast<unsigned char>(16),
                                                   1536U,
                                                   -5,
                                                   1ULL << 60U,
                                                   "quote\"d",
                                                   "",
                                                   Array(TType::kString, {"a", "b"}),
                                                   Array(TType::kBoolean, {true, false}),
                                                   TCIMValue::Null(TType::kUInt16Array),
                                                   TCIMDateTime(),
                                                   TCIMValue::Null(TType::kDateTime)};
  return constants;
}
constexpr int kConstants = 21;  ///< of a hundred; then null references, then references

/// Both sides are asked, also where the first one fails: finding a path may change the class.
template <bool kIsModel>
std::optional<TCIMReference> PathOf(TWorld<kIsModel>& world, int at) {
  try {
    return world.i(at)->GetReference({});
  } catch (const TVYRException&) {
    return {};
  }
}

/// The value of a step: a constant, a null reference to a class, or a reference to an instance.
TCIMValue MakeValue(TWorld<false>& plugin, TWorld<true>& model, int value) {
  const int at = value % 32;
  if (at < kConstants) return GetConstants()[at];
  if (at < 24) return TCIMValue::NullReference(plugin.c(value / 32));
  const auto onPlugin = PathOf(plugin, value / 32);
  const auto onModel = PathOf(model, value / 32);
  if (onPlugin.has_value() != onModel.has_value())
    throw std::logic_error("a path fails on one side");
  if (!onPlugin) throw TNothingThere();
  const TCIMReference& path = *onPlugin;
  if (path.GetPath() != onModel->GetPath()) throw std::logic_error("the paths differ");
  // Escaping doubles with every level of a reference in a key.
  if (path.GetPath().size() > 200) throw TNothingThere();
  return at < 30 ? TCIMValue(path) : TCIMValue(path, path.GetClass()->GetSuperClass({}));
}

std::string ValueText(int value) {
  const int at = value % 32;
  const std::string from = std::to_string(value / 32 & 7);
  if (at < kConstants) return TWorld<true>::Text(GetConstants()[at]);
  if (at < 24) return "null reference to c" + from;
  return "reference to i" + from + (at < 30 ? "" : " of the superclass");
}

std::string ToText(const TStep& s) {
  const auto quoted = [](const std::string& text) { return '"' + text + '"'; };
  const auto in = [&](const TPool& pool) { return quoted(pool[s.name % pool.size()]); };
  const auto maybe = [&](const TPool& pool, int at) {
    return quoted(TWorld<true>::Maybe(pool, at));
  };
  const std::map<char, std::string> fields = {
      {'a', std::to_string(s.a)},
      {'b', std::to_string(s.b)},
      {'n', std::to_string(s.name & 7)},
      {'f', std::to_string(s.flag)},
      {'F', std::to_string(s.flag & 7)},
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
  return text;
}

std::optional<TDifference> Compare(const TScript& script, bool redefines) {
  static const bool traces = std::getenv("MODEL_TRACE") != nullptr;
  const auto logger = boost::make_shared<TStreamingLogger>();
  TRootObject::SetCoreLogger(logger);
  TModelNamespace modelSpace(redefines);
  TWorld<false> plugin{AllocatePluginNamespace(redefines)};
  TWorld<true> model{&modelSpace};
  const auto meet = [&](const boost::shared_ptr<ICIMClass>& handle, TModelClass* met) {
    if (!handle || met == nullptr || met->handle) return;
    met->handle = handle;
    modelSpace.byHandle[handle.get()] = met;
  };
  meet(plugin.space->GetClass("", {}), modelSpace.root);
  for (std::size_t at = 0; at < script.size(); ++at) {
    const TStep& step = plugin.s = model.s = script[at];
    const TOperation& operation = kOperations[step.operation];
    if (traces) std::cerr << at << ": " << ToText(step) << std::endl;
    logger->out = &plugin.out;
    try {
      if (Contains(operation.pattern, "@V"))
        plugin.value = model.value = MakeValue(plugin, model, step.value);
    } catch (const TNothingThere&) {
      continue;
    }
    const std::string onPlugin = Run(*logger, plugin, operation.onPlugin);
    const std::string onModel = Run(*logger, model, operation.onModel);
    if (traces) std::cerr << "    " << onPlugin << std::endl;
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
      Add(kDeclare, q, 0, q, 0, q < 4 && Draw(4) != 0 ? 3 : Draw(8));
      Add(kAddDeclared, q, 0, 0, 0, 0);
    }
    for (int c = 0; c < 8; ++c) DefineClass(c);
    for (int i = 0; i < 8; ++i) PutInstance(i);
    std::vector<int> lots;
    for (const TOperation& operation : kOperations) {
      lots.insert(lots.end(), operation.weight, static_cast<int>(&operation - kOperations));
    }
    while (script_.size() < size) {
      const int recipe = Draw(60);
      if (recipe == 0) DefineClass(Draw(8));
      if (recipe > 0 && recipe < 4) PutInstance(Draw(8));
      const int operation = lots[Draw(static_cast<unsigned>(lots.size()))];
      const int name = Draw(3) == 0 ? Draw(1000) : Draw(6);
      if (recipe >= 4)
        Add(operation, Draw(8), Draw(8), name, Draw(3) == 0 ? 0 : Draw(512), Draw(32));
    }
    return script_;
  }

 private:
  int Draw(unsigned below) { return static_cast<int>(random_() % below); }
  void Add(int operation, int a, int b, int name, int value, int flag) {
    script_.push_back({operation, a, b, name, value, flag});
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
    Add(kMethod, c, 0, Draw(4), 0, Draw(2));
    if (Draw(2) == 0) Add(kAttach, 0, 2, 0, 0, 1);
    Add(kAddMethod, c, 0, 0, 0, 0);
    // Only a class that was made before its namesake was added can take its place.
    const int namesake = Draw(32);
    if (namesake < 8) Add(kClass, namesake, super, name, 0, 1);
    Add(kAddClass, c, 0, 0, 0, 0);
    if (namesake < 8 && Draw(2) == 0) Add(kAddClass, namesake, 0, 0, 0, 0);
  }

  /// The last three registers are for instances of associations.
  void PutInstance(int i) {
    const int near = Draw(5);
    Add(kInstance, i < 5 ? Draw(5) : 5 + Draw(3), i, 0, 0, 0);
    Add(kSet, 0, i, 0, 1 + Draw(2), 0);
    if (i >= 5) Add(kSet, 0, i, 1, 24 + Draw(8) + 32 * near, 0);
    if (i >= 5) Add(kSet, 0, i, 2, 24 + Draw(8) + 32 * Draw(5), 0);
    Add(kAddInstance, 0, i, 0, 0, 0);
    if (i < 5) return;
    Add(kReferences, 0, near, Draw(32), Draw(2) * Draw(16), Draw(8));
    Add(kAssociators, Draw(8), near, Draw(2) * Draw(32), Draw(2) * Draw(16), Draw(32));
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
  const unsigned steps = Setting("MODEL_STEPS", 2000);
  const auto end = TClock::now() + std::chrono::seconds(Setting("MODEL_SECONDS", 0));
  unsigned seed = Setting("MODEL_FIRST_SEED", 1);
  unsigned done = 0;
  do {
    Check(seed++, steps);
    ++done;
  } while (!HasFailure() && (done < Setting("MODEL_SEEDS", 40) || TClock::now() < end));
  std::cout << done << " seeds to " << seed - 1 << ", " << done * steps << " steps\n";
}

TEST_F(ModelTest, ScriptReplays) {
  const char* const name = std::getenv("MODEL_SCRIPT");
  if (name == nullptr) GTEST_SKIP() << "MODEL_SCRIPT names no script";
  std::ifstream file(name);
  TScript script;
  bool redefines = false;
  for (std::string line; std::getline(file, line);) {
    if (line.rfind('#') == std::string::npos) break;
    std::istringstream numbers(line.substr(line.rfind('#') + 1));
    TStep s{};
    const bool isStep = !!(numbers >> s.operation >> s.a >> s.b >> s.name >> s.value >> s.flag);
    if (isStep) script.push_back(s);
    if (!isStep) redefines = s.operation == 1;
  }
  EXPECT_FALSE(Compare(script, redefines)) << Report(script, redefines);
}

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>

#include "Cases.h"
#include "ICIMPropertyDecl.h"
#include "PluginNamespace.h"
#include "TMofLoader.h"
#include "TMofWriter.h"
#include "TNamespaceDump.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

struct TSpace {
  boost::shared_ptr<ICIMNamespace> nameSpace = AllocatePluginNamespace();
  TMofOptions options;
};

std::string Write(const TSpace& space) {
  return TMofWriter::WriteNamespace(space.nameSpace, *space.options.referenceClasses);
}

/// A namespace with what the text says, which holds no error where it `isRight`.
TSpace Load(const std::string& text, bool isRight) {
  TSpace space;
  TRootObject::SetLogThreshold(-1);
  std::string first;  // error or warning
  TMofLoader loader(space.nameSpace, space.options, [&first](const std::string& message) {
    if (first.empty() && message.find(": note: ") == std::string::npos) first = message;
  });
  loader.ReadText("text", text);
  loader.Enter();
  const TMofSummary summary = loader.GetSummary();
  EXPECT_TRUE(!isRight || summary.errors + summary.warnings == 0) << first;
  return space;
}

TSpace LoadFile(const std::string& file) {
  TSpace space;
  TMofLoader loader(space.nameSpace, space.options, [](const std::string&) {});
  loader.Read(file);
  loader.Enter();
  return space;
}

/// What is written leads to an equal namespace and to the same text again.
std::string RoundTrip(const TSpace& space, std::size_t facts) {
  std::string text = Write(space);
  const TNamespaceDump dump(space.nameSpace);
  const TSpace loaded = Load(text, true);
  EXPECT_GT(dump.GetSize(), facts);
  EXPECT_EQ(dump.Compare(TNamespaceDump(loaded.nameSpace)), "");
  EXPECT_TRUE(Write(loaded) == text);
  return text;
}

TEST(TMofTextTest, EverySpellingIsWrittenInOneWay) {
  const TSpace space = Load(ReadData("spellings.mof"), true);
  EXPECT_EQ(RoundTrip(space, 100), ReadData("written.mof"));
  const std::string shown = TMofWriter::WriteClass(space.nameSpace->GetClass("Below", {}), true,
                                                   *space.options.referenceClasses);
  EXPECT_EQ(shown.find("[Values{\"a\", \"b\"}]\nclass Below : Base {\n"), 0U) << shown;
  EXPECT_NE(shown.find("\n  // inherited from Base\n  [Key(true)]\n  string Id;\n"),
            std::string::npos)
      << shown;
}

TEST(TMofTextTest, ValuesThatNoTextGives) {
  const auto space = AllocatePluginNamespace();
  const std::pair<TCIMValue, const char*> rows[] = {
      {std::numeric_limits<double>::infinity(), "NULL /* inf */"},
      {"\xC3(\xED\xA0\x80", "\"\\xDCC3(\\xDCED\\xDCA0\\xDC80\""},
      {std::string("\0", 1), "\"\\xFFFD\""},
  };
  for (const auto& [value, text] : rows) {
    const auto any = space->AllocateClass("Any", {}, {});
    any->AllocatePropertyDecl("V", TCIMValue::Null(value.GetType()), {})->AddToClass({});
    const auto instance = any->AllocateInstance({});
    instance->SetPropertyValue("V", value, {});
    EXPECT_EQ(TMofWriter::WriteInstance(instance),
              std::string("instance of Any {\n  V = ") + text + ";\n};\n");
  }
}

/// Texts that a grammar leads to: what is right in them is entered, the rest is left out.
class TRandomText {
 public:
  explicit TRandomText(unsigned seed) : random_(seed) {
    std::istringstream lines(ReadData("random.txt"));
    for (std::string name, line; std::getline(lines >> name >> std::ws, line);) {
      std::istringstream choices(line);
      for (std::string choice; std::getline(choices, choice, '|');) rules_[name].push_back(choice);
    }
  }

  /// "<name>" stands for one of the rule's texts, "<name*3>" for three in a row.
  std::string Expand(const std::string& text) {
    const std::size_t open = text.find('<');
    if (open == std::string::npos) return text;
    const std::size_t close = text.find('>', open);
    const std::size_t star = std::min(text.find('*', open), close);
    const auto& choices = rules_.at(text.substr(open + 1, star - open - 1));
    std::string all = text.substr(0, open);
    for (int count = star == close ? 1 : std::stoi(text.substr(star + 1)); count > 0; --count) {
      all += Expand(choices[random_() % choices.size()]);
    }
    return all + Expand(text.substr(close + 1));
  }

 private:
  std::mt19937 random_;
  std::map<std::string, std::vector<std::string>> rules_;
};

TEST(TMofTextTest, RandomTextsMakeTheRoundTrip) {
  for (unsigned seed = 1; seed <= 40 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    RoundTrip(Load(TRandomText(seed).Expand("<text>"), false), 200);
  }
}

TEST(TMofTextTest, SchemasMakeTheRoundTrip) {
  RoundTrip(LoadFile(VYR_SCHEMA_DIR "/vyr.mof"), 500);
  const char* const file = std::getenv("VYR_CIM_SCHEMA");
  if (file == nullptr) GTEST_SKIP() << "VYR_CIM_SCHEMA names no schema";
  RoundTrip(LoadFile(file), 10000);
}

}  // namespace
}  // namespace NZELVYR20

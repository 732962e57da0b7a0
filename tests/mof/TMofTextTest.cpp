#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <sstream>

#include "Cases.h"
#include "ICIMPropertyDecl.h"
#include "TLoadedMof.h"
#include "TMofWriter.h"

namespace NZELVYR20 {
namespace {

/// What is written leads, without a doubt, to an equal namespace and to the same text again.
std::string RoundTrip(const TLoadedMof& mof, std::size_t size) {
  std::string text = mof.Write();
  TLoadedMof loaded(text);
  EXPECT_EQ(loaded.GetSummary().errors + loaded.GetSummary().warnings, 0U) << loaded.TakeMessages();
  EXPECT_TRUE(loaded.Write() == text);
  const std::string left = mof.Dump();
  const std::string right = loaded.Dump();
  EXPECT_GT(left.size(), size);
  const auto at = std::mismatch(left.begin(), left.end(), right.begin(), right.end()).first;
  EXPECT_TRUE(left == right) << std::string(at, left.end()).substr(0, 100);
  return text;
}

TEST(TMofTextTest, EverySpellingIsWrittenInOneWay) {
  TLoadedMof mof(ReadData("spellings.mof"));
  EXPECT_EQ(mof.GetSummary().errors + mof.GetSummary().warnings, 0U) << mof.TakeMessages();
  EXPECT_EQ(RoundTrip(mof, 6000), ReadData("written.mof"));
}

TEST(TMofTextTest, ValuesThatNoTextGives) {
  const TLoadedMof mof;
  const std::pair<TCIMValue, const char*> rows[] = {
      {std::numeric_limits<double>::infinity(), "real64 V = NULL /* inf */"},
      {"\xC3(\xED\xA0\x80", "string V = \"\\xDCC3(\\xDCED\\xDCA0\\xDC80\""},
      {std::string("\0", 1), "string V = \"\\xFFFD\""},
  };
  for (const auto& [value, text] : rows) {
    const auto any = mof.GetNamespace()->AllocateClass("Any", {}, {});
    any->AllocatePropertyDecl("V", value, {})->AddToClass({});
    EXPECT_EQ(TMofWriter::WriteClass(any, false, {}),
              std::string("class Any {\n\n  ") + text + ";\n};\n");
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
    RoundTrip(TLoadedMof(TRandomText(seed).Expand("<text>")), 9000);
  }
}

TEST(TMofTextTest, SchemasMakeTheRoundTrip) {
  RoundTrip(TLoadedMof().LoadFile(VYR_SCHEMA_DIR "/vyr.mof"), 30000);
  const char* const file = std::getenv("VYR_CIM_SCHEMA");
  if (file == nullptr) GTEST_SKIP() << "VYR_CIM_SCHEMA names no schema";
  RoundTrip(TLoadedMof().LoadFile(file), 1000000);
}

}  // namespace
}  // namespace NZELVYR20

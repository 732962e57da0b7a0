#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <sstream>

#include "Cases.h"
#include "ICIMParameterDecl.h"
#include "ListClasses.h"
#include "TLoadedMof.h"
#include "TShown.h"

namespace NZELVYR20 {
namespace {

/// All that the interfaces tell of a namespace: two are equal when these texts are.
std::string Dump(ICIMNamespace& nameSpace) {
  TShown world;
  const auto showDeclaration = [&](const boost::shared_ptr<ICIMQualifierDecl>& declared) {
    world.out << "\nqualifier " << world.Text(declared) << world.Text(declared->GetDefaultValue({}))
              << " scope " << declared->GetScope({}) << " flavor " << declared->GetFlavor({});
    return true;
  };
  TCIMParameterDeclCallback showParameter = [&](const auto& parameter) {
    world.ShowNamed(parameter);
    world.out << ' ' << parameter->GetType({});
    return true;
  };
  const auto showProperty = [&](const auto& one) { return world.ShowProperty(one), true; };
  const auto showMethod = [&](const auto& one) {
    return one->EnumerateParameterDecls(showParameter, {}), true;
  };
  const auto showInstance = [&](const auto& instance) {
    world.out << "\ninstance " << instance->GetReference({}).GetPath();
    instance->EnumerateProperties(showProperty, {});
    return true;
  };
  nameSpace.EnumerateQualifierDecls(showDeclaration, {});
  for (const auto& cimClass : ListAllClasses(nameSpace)) {
    world.ShowClass(cimClass);
    cimClass->EnumerateMethodDecls(showMethod, {});
    cimClass->EnumerateInstances(showInstance, false, {});
  }
  return world.out.str();
}

/// What is written leads, without a doubt, to an equal namespace and to the same text again.
std::string RoundTrip(const TLoadedMof& mof, std::size_t size) {
  std::string text = mof.Write();
  TLoadedMof loaded(text);
  EXPECT_EQ(loaded.GetSummary().errors + loaded.GetSummary().warnings, 0U) << loaded.TakeMessages();
  EXPECT_TRUE(loaded.Write() == text);
  const std::string left = Dump(*mof.nameSpace);
  const std::string right = Dump(*loaded.nameSpace);
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
    const auto any = mof.nameSpace->AllocateClass("Any", {}, {});
    any->AllocatePropertyDecl("V", value, {})->AddToClass({});
    EXPECT_EQ(TMofWriter::WriteClass(any, false, {}),
              std::string("class Any {\n\n  ") + text + ";\n};\n");
  }
}

using TRules = std::map<std::string, std::vector<std::string>>;

/// A text that a grammar leads to: "<name>" stands for one of the rule's texts, "<name*3>" for
/// three in a row.
std::string Expand(const TRules& rules, std::mt19937& random, const std::string& text) {
  const std::size_t open = text.find('<');
  if (open == std::string::npos) return text;
  const std::size_t close = text.find('>', open);
  const std::size_t star = std::min(text.find('*', open), close);
  const auto& choices = rules.at(text.substr(open + 1, star - open - 1));
  std::string all = text.substr(0, open);
  for (int count = star == close ? 1 : std::stoi(text.substr(star + 1)); count > 0; --count) {
    all += Expand(rules, random, choices[random() % choices.size()]);
  }
  return all + Expand(rules, random, text.substr(close + 1));
}

/// What is right in such a text is entered, the rest is left out.
TEST(TMofTextTest, RandomTextsMakeTheRoundTrip) {
  TRules rules;
  std::istringstream lines(ReadData("random.txt"));
  for (std::string name, line; std::getline(lines >> name >> std::ws, line);) {
    std::istringstream choices(line);
    for (std::string choice; std::getline(choices, choice, '|');) rules[name].push_back(choice);
  }
  for (unsigned seed = 1; seed <= 40 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    RoundTrip(TLoadedMof(Expand(rules, random, "<text>")), 9000);
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

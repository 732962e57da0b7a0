#include "TCIMReference.h"

#include <gtest/gtest.h>

#include <set>
#include <stdexcept>

#include "TCIMDateTime.h"
#include "TFakeSchema.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TKeys = std::vector<std::pair<std::string, TCIMValue>>;

class TCIMReferenceTest : public testing::Test {
 protected:
  TCIMReferenceTest() : nameSpace_(boost::make_shared<TFakeNamespace>()) {
    const TType::ECIMType types[] = {TType::kBoolean, TType::kUInt8,    TType::kSInt64,
                                     TType::kReal32,  TType::kReal64,   TType::kChar16,
                                     TType::kString,  TType::kDateTime, TType::kReference};
    const char* const names[] = {"Flag",   "Small", "Big",  "Single", "Double",
                                 "Letter", "Text",  "When", "Target"};
    for (std::size_t i = 0; i < std::size(types); ++i) class_->AddKey(names[i], types[i]);
    class_->AddKey("Texts", TType::kStringArray);
    class_->AddProperty("Caption", TType::kString);
    nameSpace_->classes["cim_all"] = class_;
  }

  TCIMReference MakePath(const TKeys& keys) const {
    TCIMReference path({}, {});
    path.SetClass(class_);
    for (const auto& key : keys) path.AddKeyValue(key.first, key.second);
    return path;
  }

  std::string ErrorOf(const std::string& text) const {
    try {
      return "no error: " + TCIMReference::Parse(text, nameSpace_).GetPath();
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
  }

  static int ResolutionStatus(const TCIMReference& path, bool wantsClass) {
    return StatusOf([&] { path.GetCIMElement(wantsClass); });
  }

  boost::shared_ptr<TFakeNamespace> nameSpace_;
  boost::shared_ptr<TFakeClass> class_ = boost::make_shared<TFakeClass>("CIM_All", nameSpace_);
};

TEST_F(TCIMReferenceTest, WritesCanonicalText) {
  TCIMDateTime when;
  when.SetTimeStamp(2026, 11, 21, 8, 49, 29, 5, -90);
  const struct {
    const char* description;
    TKeys keys;
    const char* text;
  } rows[] = {
      {"no keys", {}, "CIM_All"},
      {"number and string tell apart", {{"a", 1}, {"b", "1"}}, R"(CIM_All.a=1,b="1")"},
      {"null and string", {{"a", TCIMValue()}, {"b", "NULL"}}, R"(CIM_All.a=NULL,b="NULL")"},
      {"boolean and real", {{"a", false}, {"b", -1.5}}, "CIM_All.a=FALSE,b=-1.5"},
      {"names fold and sort",
       {{"Zeta", 1}, {"alpha", 2}, {"_B", 3}},
       "CIM_All._b=3,alpha=2,zeta=1"},
      {"escapes", {{"a", R"(C:\"x")"}}, R"(CIM_All.a="C:\\\"x\"")"},
      {"date-time", {{"a", when}}, R"(CIM_All.a="20261121084929.000005-090")"},
      {"character", {{"a", u'"'}}, R"(CIM_All.a="\"")"},
      {"lone surrogates stay apart",
       {{"a", u'\xD800'}, {"b", u'\xD801'}},
       "CIM_All.a=55296,b=55297"},
      {"nested reference", {{"a", MakePath({{"K", "\""}})}}, R"(CIM_All.a="CIM_All.k=\"\\\"\"")"},
      {"name that is none", {{"a=1,b", 2}}, R"(CIM_All."a=1,b"=2)"},
      {"array", {{"a", TCIMValue::Array(TType::kString, {"1", "2"})}}, R"(CIM_All.a={"1","2",})"},
      {"later value of a name wins", {{"Key", 1}, {"KEY", 2}}, "CIM_All.key=2"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(MakePath(row.keys).GetPath(), row.text) << row.description;
    const TKeys reversed(row.keys.rbegin(), row.keys.rend());
    if (row.keys.size() > 1 && Lower(row.keys[0].first) != Lower(row.keys[1].first)) {
      EXPECT_EQ(MakePath(reversed).GetPath(), row.text) << row.description;
    }
  }
}

TEST_F(TCIMReferenceTest, RemakesTheTextAfterEveryChange) {
  TCIMReference path = MakePath({{"First", 1}});
  EXPECT_EQ(path.GetPath(), "CIM_All.first=1");
  path.AddKeyValue("Second", 2);
  EXPECT_EQ(path.GetPath(), "CIM_All.first=1,second=2");
  path.AddKeyValue("FIRST", 3);
  EXPECT_EQ(path.GetPath(), "CIM_All.first=3,second=2");
  path.SetClass(boost::make_shared<TFakeClass>("B", nameSpace_));
  EXPECT_EQ(path.GetPath(), "B.first=3,second=2");
  EXPECT_EQ(path.ToString(), "B.First=3,Second=2");
}

TEST_F(TCIMReferenceTest, GivesDifferentKeysDifferentTexts) {
  std::vector<TCIMValue> values = {TCIMValue(), true, false, 0, 1, -1};
  std::vector<std::string> texts = {""};
  for (std::size_t i = 0; texts[i].size() < 2; ++i) {
    for (const char c : std::string("\"\\,=.a1")) texts.push_back(texts[i] + c);
  }
  texts.insert(texts.end(), {"NULL", "TRUE", "\",b=\"", "\\\",b=\\\"", "CIM_All.a=\"x\""});
  values.insert(values.end(), texts.begin(), texts.end());

  std::set<std::string> paths;
  std::size_t count = 0;
  const auto add = [&](const TKeys& keys) {
    paths.insert(MakePath(keys).GetPath());
    ++count;
  };
  for (const TCIMValue& first : values) {
    add({{"a", first}});
    add({{"b", first}});
    add({{"c", MakePath({{"a", first}})}});
    add({{"c", MakePath({{"c", MakePath({{"a", first}})}})}});
    for (const TCIMValue& second : values) {
      add({{"a", first}, {"b", second}});
      add({{"c", MakePath({{"a", first}})}, {"d", second}});
      add({{"c", MakePath({{"a", first}, {"d", second}})}});
    }
  }
  EXPECT_GT(count, 10000U);
  EXPECT_EQ(paths.size(), count);
}

TEST_F(TCIMReferenceTest, ResolvesInItsNamespaceOrThatOfItsClass) {
  const TCIMReference path = MakePath({{"Text", "x"}});
  EXPECT_EQ(path.GetCIMElement(true), class_);
  EXPECT_EQ(ResolutionStatus(path, false), 15);
  EXPECT_EQ(nameSpace_->wanted, std::vector<std::string>{path.GetPath()});

  const auto other = boost::make_shared<TFakeNamespace>();
  TCIMReference elsewhere(other, {});
  elsewhere.SetClass(class_);
  EXPECT_EQ(ResolutionStatus(elsewhere, false), 15);
  EXPECT_EQ(other->wanted, std::vector<std::string>{"CIM_All"});
  EXPECT_EQ(nameSpace_->wanted.size(), 1U);
  EXPECT_EQ(ResolutionStatus(elsewhere, true), 15);
  other->classes["cim_all"] = boost::make_shared<TFakeClass>("CIM_All", other);
  EXPECT_EQ(elsewhere.GetCIMElement(true), other->classes["cim_all"]);

  const TCIMReference empty(nameSpace_, {});
  EXPECT_EQ(ResolutionStatus(empty, false), 15);
  EXPECT_EQ(ResolutionStatus(empty, true), 15);
}

TEST_F(TCIMReferenceTest, KeepsItsClassAliveButNotItsNamespace) {
  TCIMReference path(nameSpace_, {});
  path.SetClass(class_);
  const boost::weak_ptr<TFakeNamespace> watch = nameSpace_;
  nameSpace_->classes.clear();
  nameSpace_.reset();
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(ResolutionStatus(path, false), 15);
  EXPECT_EQ(path.GetCIMElement(true), class_);
}

TEST_F(TCIMReferenceTest, ReadsGoodText) {
  const struct {
    const char* description;
    std::string text;
    const char* shown;
  } rows[] = {
      {"class alone", " cim_ALL\t", "CIM_All"},
      {"string with escapes", R"(CIM_All.Text="a\"\\b, =")", R"(CIM_All.Text="a\"\\b, =")"},
      {"space and case", " cim_all . TEXT\n= \"x\" ,\tSMALL = 7 ", "CIM_All.Text=\"x\",Small=7"},
      {"signs", "CIM_All.Small=+7,Big=-9223372036854775808",
       "CIM_All.Small=7,Big=-9223372036854775808"},
      {"words", "CIM_All.Flag=tRue,Text=null,Target=NULL",
       "CIM_All.Flag=TRUE,Text=NULL,Target=NULL"},
      {"reals", "CIM_All.Single=0.1,Double=-inf", "CIM_All.Single=0.1,Double=-inf"},
      {"character", "CIM_All.Letter=\"\u20AC\"", "CIM_All.Letter=\"\u20AC\""},
      {"code of a character", "CIM_All.Letter=55296", "CIM_All.Letter=55296"},
      {"date-time", R"(CIM_All.When="00000002030405.000000:000")",
       R"(CIM_All.When="00000002030405.000000:000")"},
      {"path in path in path", R"(CIM_All.Target="cim_all.target=\"CIM_ALL.text=\\\"x\\\"\"")",
       R"(CIM_All.Target="CIM_All.Target=\"CIM_All.Text=\\\"x\\\"\"")"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TCIMReference path = TCIMReference::Parse(row.text, nameSpace_);
    EXPECT_EQ(path.ToString(), row.shown);
    EXPECT_EQ(TCIMReference::Parse(row.shown, nameSpace_).GetPath(), path.GetPath());
  }
  const auto typed = TCIMReference::Parse("CIM_All.Big=1,Target=\"CIM_All\"", nameSpace_);
  EXPECT_EQ(typed.GetPath(), MakePath({{"target", MakePath({})}, {"big", 1}}).GetPath());
}

TEST_F(TCIMReferenceTest, NamesWhatIsWrongAndWhere) {
  const struct {
    std::string text;
    const char* message;
  } rows[] = {
      {"", "column 1: expected a class name"},
      {"  9x", "column 3: expected a class name"},
      {"CIM_All Text", "column 9: expected \".\" or the end of the path"},
      {"CIM_All.", "column 9: expected a key name"},
      {"CIM_All.Text", "column 13: expected \"=\" after key \"Text\""},
      {"CIM_All.Text=", "column 14: expected a value"},
      {"CIM_All.Text=\"x", "column 14: the quoted text does not end"},
      {"CIM_All.Text=\"x\\", "column 14: the quoted text does not end"},
      {"CIM_All.Text=\"x\\n\"", "column 16: unknown escape; only \\\" and \\\\ are known"},
      {"CIM_All.Text=\"x\" Small=1", "column 18: expected \",\" or the end of the path"},
      {"CIM_All.Text=\"\u20AC\";", "column 17: expected \",\" or the end of the path"},
      {"CIM_All.Text=\"x\",", "column 18: expected a key name"},
      {"CIM_All.Nope=1", "column 9: class \"CIM_All\" has no key \"Nope\""},
      {"CIM_All.caption=\"x\"", "column 9: property \"caption\" of class \"CIM_All\" is no key"},
      {"CIM_All.Small=1,SMALL=1", "column 17: key \"Small\" is given twice"},
      {"CIM_All.Small=256", "column 15: key \"Small\": 256 is out of range for uint8"},
      {"CIM_All.Small=-1", "column 15: key \"Small\": -1 is no uint8"},
      {"CIM_All.Small=\"1\"", "column 15: key \"Small\": \"1\" is no uint8"},
      {"CIM_All.Big=+-1", "column 13: key \"Big\": +-1 is no sint64"},
      {"CIM_All.Big=1x", "column 13: key \"Big\": 1x is no sint64"},
      {"CIM_All.Single=1e39", "column 16: key \"Single\": 1e39 is out of range for real32"},
      {"CIM_All.Flag=yes", "column 14: key \"Flag\": yes is no boolean"},
      {"CIM_All.Text=x", "column 14: key \"Text\": x is no string (that stands in quotes)"},
      {"CIM_All.Letter=\"ab\"", "column 16: key \"Letter\": \"ab\" is no char16"},
      {"CIM_All.Letter=65536", "column 16: key \"Letter\": 65536 is out of range for char16"},
      {"CIM_All.When=\"2026\"",
       "column 14: key \"When\": date-time \"2026\", column 5: the text ends early"},
      {R"(CIM_All.Target="Nope.a=1")", "column 17: there is no class \"Nope\""},
      {R"(CIM_All.Target="CIM_All.Target=\"CIM_All.Small=x\"")",
       "column 48: key \"Small\": x is no uint8"},
  };
  for (const auto& row : rows) EXPECT_EQ(ErrorOf(row.text), row.message) << row.text;
}

TEST_F(TCIMReferenceTest, LimitsTheDepthOfPaths) {
  std::string text = "CIM_All";
  for (int depth = 0; depth < 16; ++depth) {
    text = MakePath({{"Target", text}}).GetPath();
  }
  EXPECT_EQ(TCIMReference::Parse(text, nameSpace_).GetPath(), text);
  EXPECT_NE(ErrorOf(MakePath({{"Target", text}}).GetPath()).find("deeper than 16"),
            std::string::npos);
}

TEST_F(TCIMReferenceTest, LetsTheStatusOfAnUnknownClassPass) {
  EXPECT_EQ(StatusOf([&] { TCIMReference::Parse("Nope.a=1", nameSpace_); }), 15);
  EXPECT_EQ(StatusOf([] { TCIMReference::Parse("Nope", {}); }), 15);
}

}  // namespace
}  // namespace NZELVYR20

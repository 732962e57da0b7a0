#include "TCIMReference.h"

#include <set>

#include "Paths.h"

namespace NZELVYR20 {

/// Paths of a class "All" that has a key of every type, named by the type's word.
struct TCIMReferenceTest : testing::Test {
  TCIMReferenceTest() {
    Qualify(nameSpace, *all, "Association");
    all->AllocatePropertyDecl("Caption", "", {})->AddToClass({});
    for (int number = TType::kBoolean; number <= TType::kReference; ++number) {
      const TType type = static_cast<TType::ECIMType>(number);
      const auto key =
          all->AllocatePropertyDecl(testing::PrintToString(type), TCIMValue::Null(type), {});
      Qualify(nameSpace, *key, "Key");
      key->AddToClass({});
    }
    all->AddToNamespace({});
  }

  std::string Read(TText text) const {
    return ResultOf([&] { return TCIMReference::Parse(text, nameSpace).ToString(); });
  }

  boost::shared_ptr<ICIMNamespace> nameSpace = AllocatePluginNamespace();
  TClass all = nameSpace->AllocateClass("All", {}, {});
};

TEST_F(TCIMReferenceTest, WritesCanonicalText) {
  const std::tuple<const char*, TKeys, const char*> rows[] = {
      {"bare", {{"a", 1}, {"b", -1.5}, {"c", TCIMValue()}}, "All.a=1,b=-1.5,c=NULL"},
      {"quoted", {{"a", "1"}, {"b", "NULL"}, {"c", "TRUE"}}, R"(All.a="1",b="NULL",c="TRUE")"},
      {"names fold and sort", {{"Zeta", 1}, {"alpha", 2}, {"_B", 3}}, "All._b=3,alpha=2,zeta=1"},
      {"escapes", {{"a", R"(C:\"x")"}, {"b", u'"'}}, R"(All.a="C:\\\"x\"",b="\"")"},
      {"date-time", {{"a", TCIMDateTime()}}, R"(All.a="00000000000000.000000:000")"},
      {"lone surrogates", {{"a", u'\xD800'}, {"b", u'\xDFFF'}}, "All.a=55296,b=57343"},
      {"path", {{"a", MakePath(all, {{"K", "\""}})}}, R"(All.a="All.k=\"\\\"\"")"},
      {"name that is none", {{"a=1,b", 2}}, R"(All."a=1,b"=2)"},
      {"array", {{"a", TCIMValue::Array(TType::kString, {"1", "2"})}}, R"(All.a={"1","2",})"},
  };
  for (const auto& [description, keys, text] : rows) {
    EXPECT_EQ(MakePath(all, keys).GetPath(), text) << description;
    const TKeys reversed(keys.rbegin(), keys.rend());
    EXPECT_EQ(MakePath(all, reversed).GetPath(), text) << description << ", reversed";
  }
}

TEST_F(TCIMReferenceTest, RemakesTheTextAfterEveryChange) {
  TCIMReference path = MakePath(all, {{"Second", 1}});
  EXPECT_EQ(path.GetPath(), "All.second=1");
  path.AddKeyValue("First", 2);
  path.AddKeyValue("SECOND", 3);
  EXPECT_EQ(path.GetPath(), "All.first=2,second=3");
  path.SetClass(MakeClass("B"));
  EXPECT_EQ(path.GetPath(), "B.first=2,second=3");
  EXPECT_EQ(path.ToString(), "B.Second=3,First=2");
}

TEST_F(TCIMReferenceTest, GivesDifferentKeysDifferentTexts) {
  TValues values = {TCIMValue(), true, 1, "NULL", "TRUE", "\",b=\"", "\\\",b=\\\"", "", "\"", "\\"};
  for (const char* first = "\"\\,=.a1"; *first != '\0'; ++first) {
    for (const char second : std::string("\"\\,=.a1"))
      values.emplace_back(std::string{*first, second});
  }
  std::set<std::string> paths;
  for (const TCIMValue& first : values) {
    const TCIMReference inner = MakePath(all, {{"a", first}});
    paths.insert({inner.GetPath(), MakePath(all, {{"c", inner}}).GetPath()});
    for (const TCIMValue& second : values) {
      paths.insert(MakePath(all, {{"a", first}, {"b", second}}).GetPath());
      paths.insert(MakePath(all, {{"c", inner}, {"d", second}}).GetPath());
      paths.insert(MakePath(all, {{"c", MakePath(all, {{"a", first}, {"d", second}})}}).GetPath());
    }
  }
  EXPECT_EQ(paths.size(), values.size() * (2 + 3 * values.size()));
}

TEST_F(TCIMReferenceTest, ResolvesInItsNamespaceOrThatOfItsClass) {
  auto other = AllocatePluginNamespace();
  const auto there = AddInstance(AddClass(other, "Port", ""), "a");
  const auto here = AddInstance(AddClass(nameSpace, "Port", ""), "a");
  TCIMReference path(other, {});
  const auto resolve = [&](bool wantsClass) {
    return ResultOf([&] { return path.GetCIMElement(wantsClass) ? "found" : "empty"; });
  };
  EXPECT_EQ(resolve(true), kNotFound);
  path.SetClass(here->GetClass({}));
  EXPECT_EQ(resolve(false), kNotFound);
  path.AddKeyValue("Id", "a");
  EXPECT_EQ(path.GetCIMElement(false), there);
  EXPECT_EQ(path.GetCIMElement(true), there->GetClass({}));
  other.reset();
  EXPECT_EQ(path.GetCIMElement(false), here);
  EXPECT_EQ(path.GetCIMElement(true), here->GetClass({}));
  nameSpace.reset();
  EXPECT_EQ(resolve(false), kNotFound);
  EXPECT_EQ(path.GetCIMElement(true), here->GetClass({}));
}

TEST_F(TCIMReferenceTest, ReadsTextOrNamesWhatIsWrongAndWhere) {
  const std::pair<std::string, std::string> rows[] = {
      // Read and shown; a second text that is empty means that the first one is shown.
      {" aLL\t", "All"},
      {R"(All.string="a\"\\b, =")", ""},
      {" all . STRING\n= \"x\" ,\tUint8 = +7 ", "All.string=\"x\",uint8=7"},
      {"All.uint8=255,uint16=65535,uint32=4294967295,uint64=18446744073709551615", ""},
      {"All.sint8=-128,sint16=-32768,sint32=-2147483648,sint64=-9223372036854775808", ""},
      {"All.boolean=tRue,string=null,char16=55296", "All.boolean=TRUE,string=NULL,char16=55296"},
      {"All.real32=0.1,real64=-inf,char16=\"\u20AC\",datetime=\"00000002030405.000000:000\"", ""},
      {R"(All.reference="All.reference=\"All.string=\\\"x\\\"\"")", ""},
      // No path.
      {"", "column 1: expected a class name"},
      {"  9x", "column 3: expected a class name"},
      {"Nope.a=1", kNotFound},
      {"All Text", "column 5: expected \".\" or the end of the path"},
      {"All.string", "column 11: expected \"=\" after key \"string\""},
      {"All.string=", "column 12: expected a value"},
      {"All.string=\"x", "column 12: the quoted text does not end"},
      {"All.string=\"x\\", "column 12: the quoted text does not end"},
      {"All.string=\"x\\n\"", "column 14: unknown escape; only \\\" and \\\\ are known"},
      {"All.string=\"\u20AC\";", "column 15: expected \",\" or the end of the path"},
      {"All.string=\"x\",", "column 16: expected a key name"},
      {"All.Nope=1", "column 5: class \"All\" has no key \"Nope\""},
      {"All.caption=\"x\"", "column 5: property \"caption\" of class \"All\" is no key"},
      {"All.uint8=1,UINT8=1", "column 13: key \"uint8\" is given twice"},
      {"All.uint8=256", "column 11: key \"uint8\": 256 is out of range for uint8"},
      {"All.sint64=+-1", "column 12: key \"sint64\": +-1 is no sint64"},
      {"All.sint64=1x", "column 12: key \"sint64\": 1x is no sint64"},
      {"All.boolean=yes", "column 13: key \"boolean\": yes is no boolean"},
      {"All.string=x", "column 12: key \"string\": x is no string (that stands in quotes)"},
      {"All.char16=\"ab\"", "column 12: key \"char16\": \"ab\" is no char16"},
      {R"(All.reference="All.uint8=\"1\"")", "column 26: key \"uint8\": \"1\" is no uint8"},
      {R"(All.reference="All.reference=\"Nope\"")", "column 32: there is no class \"Nope\""},
  };
  for (const auto& [text, result] : rows) EXPECT_EQ(Read(text), result.empty() ? text : result);

  // A path may stand sixteen deep in others, and no deeper.
  int depth = -1;
  for (std::string text = "All"; depth < 20 && Read(text) == text; ++depth) {
    text = MakePath(all, {{"reference", text}}).GetPath();
  }
  EXPECT_EQ(depth, 16);
}

}  // namespace NZELVYR20

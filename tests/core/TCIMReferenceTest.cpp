#include "TCIMReference.h"

#include <set>

#include "Cases.h"
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
  for (const char* const text : {"a\"", "\"a", "\\\"", "\"\\", "\\\\", "=1", ".,"}) {
    values.emplace_back(text);
  }
  std::set<std::string> paths;
  for (const TCIMValue& first : values) {
    const TCIMReference inner = MakePath(all, {{"a", first}});
    for (const TCIMValue& second : values) {
      paths.insert(MakePath(all, {{"a", first}, {"b", second}}).GetPath());
      paths.insert(MakePath(all, {{"c", inner}, {"d", second}}).GetPath());
      paths.insert(MakePath(all, {{"c", MakePath(all, {{"a", first}, {"d", second}})}}).GetPath());
    }
  }
  EXPECT_EQ(paths.size(), 3 * values.size() * values.size());
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
  CheckCases("paths.txt", [this](TText text) { return Read(text); });
  EXPECT_EQ(Read(""), "column 1: expected a class name");

  // A path may stand sixteen deep in others, and no deeper.
  int depth = -1;
  for (std::string text = "All"; depth < 20 && Read(text) == text; ++depth) {
    text = MakePath(all, {{"reference", text}}).GetPath();
  }
  EXPECT_EQ(depth, 16);
}

}  // namespace NZELVYR20

#include "TCIMReference.h"

#include <set>

#include "Cases.h"
#include "Paths.h"
#include "TFaults.h"

namespace NZELVYR20 {

/// Paths of a class "All" that has a key of every type, named by the type's word, and two more.
struct TCIMReferenceTest : testing::Test {
  TCIMReferenceTest() {
    Qualify(nameSpace, *all, "Association");
    all->AllocatePropertyDecl("Caption", "", {})->AddToClass({});
    for (const char* const name : {"Zeta", "_B"}) Declare(nameSpace, all, name, "", {"Key"});
    for (int number = TType::kBoolean; number <= TType::kReference; ++number) {
      const TType type = static_cast<TType::ECIMType>(number);
      Declare(nameSpace, all, testing::PrintToString(type), TCIMValue::Null(type), {"Key"});
    }
    all->AddToNamespace({});
  }

  /// The path for people, and below it the canonical one where that differs.
  std::string Read(TText text) const {
    return ResultOf([&] {
      const TCIMReference path = TCIMReference::Parse(text, nameSpace);
      const std::string shown = path.ToString();
      return shown == path.GetPath() ? shown : shown + '\n' + path.GetPath();
    });
  }

  boost::shared_ptr<ICIMNamespace> nameSpace = AllocatePluginNamespace();
  TClass all = nameSpace->AllocateClass("All", {}, {});
};

TEST_F(TCIMReferenceTest, RemakesTheTextAfterEveryChange) {
  TCIMReference path = MakePath(all, {{"Second", 1}});
  EXPECT_EQ(path.GetPath(), "All.second=1");
  path.AddKeyValue("Sec", 2);
  path.AddKeyValue("SECOND", 3);
  EXPECT_EQ(path.GetPath(), "All.sec=2,second=3");
  path.SetClass(MakeClass("B"));
  EXPECT_EQ(path.GetPath(), "B.sec=2,second=3");
  EXPECT_EQ(path.ToString(), "B.Second=3,Sec=2");
  path.AddKeyValue("a=1,b", TCIMValue::Array(TType::kString, {"1", "2"}));
  EXPECT_EQ(path.GetPath(), "B.\"a=1,b\"={\"1\",\"2\",},sec=2,second=3");
}

TEST_F(TCIMReferenceTest, StaysWholeWhenAnAssignmentFails) {
  const TCIMReference source = MakePath(all, {{"Id", "new"}, {"Text", std::string(50, 'n')}});
  TCIMReference target = MakePath(MakeClass("B"), {{"Id", "old"}});
  const std::string whole = target.ToString();
  int blocks = 0;
  while (target.GetClass() != all) {
    EXPECT_EQ(target.ToString(), whole) << "after " << blocks << " blocks";
    TFaults::Arm(TFaults::EKind::kNew, ++blocks);
    ResultOf([&] { return target = source, "done"; });
    TFaults::Disarm();
  }
  EXPECT_GT(blocks, 2);
  EXPECT_EQ(target.ToString(), source.ToString());
}

TEST_F(TCIMReferenceTest, TheTextOfATemporaryOutlivesIt) {
  const std::string& text = MakePath(all, {{"Second", "longer than a text in place"}}).GetPath();
  EXPECT_EQ(text, "All.second=\"longer than a text in place\"");
}

TEST_F(TCIMReferenceTest, GivesDifferentKeysDifferentTexts) {
  const TValues values = {TCIMValue(),   true,   1,      "NULL", "TRUE", "\",b=\"",
                          "\\\",b=\\\"", "",     "\"",   "\\",   "a\"",  "\"a",
                          "\\\"",        "\"\\", "\\\\", "=1",   ".,"};
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
  EXPECT_THROW(path.GetCIMElement(true), TVYRException);
  path.SetClass(here->GetClass({}));
  EXPECT_THROW(path.GetCIMElement(false), TVYRException);
  path.AddKeyValue("Id", "a");
  EXPECT_EQ(path.GetCIMElement(false), there);
  EXPECT_EQ(path.GetCIMElement(true), there->GetClass({}));
  other.reset();
  EXPECT_EQ(path.GetCIMElement(false), here);
  EXPECT_EQ(path.GetCIMElement(true), here->GetClass({}));
  nameSpace.reset();
  EXPECT_THROW(path.GetCIMElement(false), TVYRException);
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

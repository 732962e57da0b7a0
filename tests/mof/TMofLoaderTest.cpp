#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TLoadedMof.h"

namespace NZELVYR20 {
namespace {

TEST(TMofLoaderTest, AnOverrideGetsWhatIsPassedDown) {
  TLoadedMof mof(
      "class A { [Key, Description(\"id\"), Local(\"here\")] string Id;\n"
      "  [Units(\"Bytes\"), Description(\"old\")] uint32 Size;\n"
      "  [Description(\"m\")] uint32 Do([In(false), Description(\"p\")] string P); };\n"
      "class B : A { [Override(\"Id\")] string ID;\n"
      "  [Override(\"Size\"), Description(\"new\"), Units(\"Bits\"): DisableOverride] uint32 "
      "Size;\n"
      "  [Override(\"Do\")] uint32 Do(string P); };\n"
      "class C : B { [Override(\"Size\"), Units(\"Words\")] uint32 Size; };\n");
  EXPECT_EQ(mof.TakeMessages(),
            "7:34: note: the qualifier Units stays as it is, since it may not be overridden");
  EXPECT_EQ(mof.Qualifier("B", "Id", "Key"), "TRUE");
  EXPECT_EQ(mof.Qualifier("B", "Id", "Description"), "id");
  EXPECT_EQ(mof.Qualifier("B", "Id", "Local"), "-");
  EXPECT_EQ(mof.Qualifier("B", "Size", "Description"), "new");
  EXPECT_EQ(mof.Qualifier("C", "Size", "Units"), "Bits");
  const auto method = mof.Class("B")->GetMethodDecl("Do", {});
  EXPECT_EQ(method->GetQualifier("Description", {})->GetValue({}), TCIMValue("m"));
  const auto parameter = method->GetParameterDecl("P", {});
  EXPECT_EQ(parameter->GetQualifier("In", {})->GetValue({}), TCIMValue(false));
}

TEST(TMofLoaderTest, ValuesNeedTheTypeOfTheirDeclaration) {
  const struct {
    const char* declared;
    const char* message;
  } rows[] = {
      {"uint8 P = 256", "the number is out of the range of the type uint8"},
      {"uint8 P = -1", "the number is out of the range of the type uint8"},
      {"sint8 P = 128", "the number is out of the range of the type sint8"},
      {"sint64 P = 9223372036854775808", "the number is out of the range of the type sint64"},
      {"uint16 P = 1.5", "a real number is no value of the type uint16"},
      {"uint16 P = \"1\"", "a string is no value of the type uint16"},
      {"real32 P = 1.0e99", "the number is out of the range of the type real32"},
      {"boolean P = 1", "an integer is no value of the type boolean"},
      {"string P = 'a'", "a character is no value of the type string"},
      {"string P = {\"a\"}", "one value is expected, not an array"},
      {"datetime P = \"soon\"", "date-time \"soon\": "},
  };
  for (const auto& row : rows) {
    TLoadedMof mof(std::string("class A { [Key] uint8 K = 1; ") + row.declared + "; };");
    EXPECT_NE(mof.TakeMessages().find(std::string(": error: class A: ") + row.message),
              std::string::npos)
        << row.declared;
    EXPECT_FALSE(mof.Has("A"));
  }
}

/// What is wrong is named with its place, and left out; what is right beside it is entered.
TEST(TMofLoaderTest, WhatIsWrongIsNamedAndLeftOut) {
  const std::vector<std::pair<const char*, const char*>> rows = {
      {"class B : Nowhere { };", "1:11: error: class B: there is no class Nowhere"},
      {"class B { [Key] string Id; string id; };",
       "1:35: note: the property id is named twice; the first one stays"},
      {"class B { [Key] string Id; };\nclass b { };",
       "2:7: warning: the class b stands twice; the first one counts"},
      {"class ok { };", "1:7: note: the class ok is there already, and stays as it is"},
      {"Qualifier key : string;",
       "1:11: note: the qualifier key is declared already, and stays as it is"},
      {"class B : Ok { uint8 Id; };",
       "1:22: warning: the property Id is left out: that of the superclass Ok has another type, or "
       "is not overridden"},
      {"class B : Ok { [Override(\"Do\")] uint8 Do(); [Override(\"P\")] uint8 P; };",
       "1:39: note: Do overrides nothing: no superclass has it\n"
       "1:67: note: P overrides nothing: no superclass has it"},
      {"class B : Ok { [Override(\"Id\")] uint8 Id; };",
       "1:39: warning: the property Id is left out: that of the superclass Ok has another type, or "
       "is not overridden"},
      {"class B { string P; };\n[Association] class L : B { Ok REF R; };",
       "1:7: error: class B is refused: The class has no key property.\n"
       "2:25: error: class L is refused: it needs the class B, which was refused"},
      {"class B : Nowhere { };\nclass C : B { };",
       "1:11: error: class B: there is no class Nowhere\n"
       "2:11: error: class C: it needs the class B, which was left out"},
      {"class B { [Key] Ok REF R; };",
       "1:7: error: class B is refused: Only an association may declare a reference."},
      {"class B : Ok { uint8 Do(); uint8 do(); };",
       "1:7: error: class B is refused: The name is already defined."},
      {"class B : C { };\nclass C : B { };",
       "1:11: error: class B: it and the superclass C need each other\n"
       "2:11: error: class C: it needs the class B, which was left out"},
      {"[Later(\"x\")] class B : Ok { };\nQualifier Later : string;",
       "1:2: note: the qualifier Later is declared further down"},
      {"[Odd(\"x\")] class B : Ok { [Odd(5)] string P; };",
       "1:2: warning: the qualifier Odd is declared nowhere; it is taken for a string\n"
       "1:32: error: class B: an integer is no value of the type string"},
      {"[Description(\"x\") : Restricted] instance of Ok { Id = \"2\"; };",
       "1:45: note: qualifiers of instances are not kept"},
      {"instance of Nowhere { };", "1:13: error: instance of Nowhere: there is no class Nowhere"},
      {"instance of Ok { Id = \"2\"; HealthState = 5; };",
       "1:28: error: instance of Ok: the class has no property HealthState"},
      {"instance of Ok { };",
       "1:13: error: instance of Ok is refused: A key property has no value."},
      {"instance of Ok { Id = \"1\"; };",
       "1:13: note: takes the place of the instance Ok.Id=\"1\""},
      {"instance of Link { Left = $Who; Right = $Who; };",
       "1:27: error: instance of Link: no instance has the alias $Who"},
      {"instance of Link as $L { Left = $L; Right = $L; };",
       "1:33: error: instance of Link: the instance with the alias $L was left out, or refers to "
       "this one in turn"},
      {"instance of Link { Left = \"Ok.Id=\\\"1\\\"\"; Right = \"Ok.Id=\\\"9\\\"\"; };",
       "1:13: error: instance of Link is refused: The element was not found."},
      {"instance of Link { Left = 5; Right = 5; };",
       "1:27: error: instance of Link: an integer is no value of the type reference"},
      {"instance of Link { Left = \"root:Ok.Id=\\\"1\\\"\"; Right = \"Ok.Id=\\\"1\\\"\"; };", ""},
      {"Qualifier Small : uint8 = 256;",
       "1:27: error: qualifier Small: the number is out of the range of the type uint8"},
      {"instance of Link { Left = \"Link\"; };",
       "1:27: error: instance of Link: property Left: The type does not match."},
      {"instance of Ok as $X { Id = \"3\"; };\ninstance of Ok as $x { Id = \"4\"; };",
       "2:20: error: the alias $x stands for another instance"},
  };
  for (const auto& [text, messages] : rows) {
    SCOPED_TRACE(text);
    TLoadedMof mof(
        "class Ok { [Key] string Id; };\n"
        "[Association] class Link { [Key] Ok REF Left; [Key] Ok REF Right; };\n"
        "instance of Ok { Id = \"1\"; };");
    ASSERT_EQ(mof.TakeMessages(), "");
    mof.LoadText(std::string(text) + "\nclass Beside : Ok { };");
    EXPECT_EQ(mof.TakeMessages(), messages);
    EXPECT_TRUE(mof.Has("Beside"));
  }
}

TEST(TMofLoaderTest, RefusalsAreCountedByTheirReason) {
  const TLoadedMof mof(
      "class B { };\nclass C { };\nclass D : B { };\ninstance of D { };"
      "class E { [Key] string Id; }; instance of E { };");
  const TMofSummary summary = mof.GetSummary();
  EXPECT_EQ(summary.classes.refused, 3U);
  EXPECT_EQ(summary.instances.skipped, 1U);
  EXPECT_EQ(summary.ToString(),
            "2 files; qualifiers: 9 entered; classes: 1 entered, 3 refused; instances: 0 entered, "
            "1 skipped, 1 refused; 5 errors, 0 warnings, 0 notes"
            "\nrefused: A key property has no value.: instance of E"
            "\nrefused: The class has no key property.: B, C"
            "\nrefused: it needs the class B, which was refused: D");
}

TEST(TMofLoaderTest, AStrictLoadStopsAtItsFirstFault) {
  TMofOptions strict;
  strict.isStrict = true;
  TLoadedMof mof("class A { [Key] string Id; };", strict);
  EXPECT_THROW(mof.LoadText("[Odd] class B : A { };\nclass C : A { };"), TMofStrictStop);
  EXPECT_EQ(mof.TakeMessages(),
            "1:2: error: the qualifier Odd is declared nowhere; it is taken for a boolean");
  EXPECT_FALSE(mof.Has("B") || mof.Has("C"));
  EXPECT_THROW(mof.LoadText("class"), TMofStrictStop);
  mof.LoadText("class D : A { };");
  EXPECT_TRUE(mof.Has("D"));
}

TEST(TMofLoaderTest, UnknownEscapesStandForThemselves) {
  const TLoadedMof mof(R"(class A { [Key] uint8 K = 1; string T = "r\c\D:\q\xDE00z"; };
                         instance of A { };)");
  EXPECT_EQ(mof.Show("A.K=1", "T"), "r\\c\\D:\\q\xEF\xBF\xBDz|");
}

TEST(TMofLoaderTest, LongChainsDoNotExhaustTheStack) {
  std::string text =
      "class A { [Key] string Id; };\n"
      "[Association] class M { [Key] string Id; A REF To; };\n"
      "[Association] class N : M { M REF Next; };\n";
  constexpr std::size_t kLength = 20000;
  for (std::size_t index = 0; index < kLength; ++index) {
    const std::string number = std::to_string(index);
    text.append("instance of N as $N").append(number);
    text.append(" { Id = \"").append(number).append("\"; To = $A; Next = $N");
    text.append(std::to_string(index + 1)).append("; };\n");
  }
  text += "instance of M as $N" + std::to_string(kLength) + " { Id = \"end\"; To = $A; };\n" +
          "instance of A as $A { Id = \"a\"; };\n";
  TLoadedMof mof(text);
  EXPECT_EQ(mof.TakeMessages(), "");
  EXPECT_EQ(mof.GetSummary().instances.declared, kLength + 2);
}

}  // namespace
}  // namespace NZELVYR20

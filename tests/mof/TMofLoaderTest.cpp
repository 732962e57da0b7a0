#include <gtest/gtest.h>

#include <string>

#include "Cases.h"
#include "TLoadedMof.h"

namespace NZELVYR20 {

/// What is wrong is named with its place, and left out; what is right beside it is entered. What
/// was entered reads back.
TEST(TMofLoaderTest, WhatIsWrongIsNamedAndLeftOut) {
  CheckCases("loader.txt", [](const std::string& text) {
    TLoadedMof mof(
        "class Ok { [Key] string Id; };\n"
        "[Association] class Link { [Key] Ok REF Left; [Key] Ok REF Right; };\n"
        "instance of Ok { Id = \"1\"; };");
    EXPECT_EQ(mof.TakeMessages(), "");
    mof.LoadText(text + "\nclass Beside : Ok { };");
    EXPECT_TRUE(mof.Has("Beside")) << text;
    TLoadedMof again(mof.Write());
    EXPECT_EQ(again.GetSummary().errors + again.GetSummary().warnings, 0U) << again.TakeMessages();
    const std::string summary = mof.GetSummary().ToString();
    return mof.TakeMessages() +
           summary.substr(std::min(summary.find("\nleft out"), summary.size()));
  });
}

TEST(TMofLoaderTest, RefusalsAreCountedByTheirReason) {
  const TLoadedMof mof(
      "class B { };\nclass C { };\nclass D : B { };\ninstance of D { };"
      "class E { [Key] string Id; }; instance of E { Id = \"1\"; };\n"
      "instance of E { Id = \"1\"; }; instance of E { };");
  EXPECT_EQ(mof.GetSummary().ToString(),
            "2 files; qualifiers: 9 entered; classes: 1 entered, 1 skipped, 2 refused; instances: "
            "1 entered, 1 replaced, 1 skipped, 1 refused; 3 errors, 0 warnings, 1 note"
            "\nrefused: The class has no key property.: B, C"
            "\nrefused: the key Id has no value: instance of E"
            "\nleft out with B: 2 declarations that need it");
}

TEST(TMofLoaderTest, AStrictLoadStopsAtItsFirstFault) {
  TMofOptions strict;
  strict.isStrict = true;
  TLoadedMof mof("class A { [Key] string Id; };", strict);
  EXPECT_THROW(mof.LoadText("[Odd] class B : A { };\nclass C : A { };"), TMofStrictStop);
  EXPECT_EQ(mof.TakeMessages(),
            "1:2: error: the qualifier Odd is declared nowhere; it is taken for a boolean");
  EXPECT_FALSE(mof.Has("B") || mof.Has("C"));
  EXPECT_THROW(mof.LoadText("instance of A { Id = \"\\q\\q\"; };"), TMofStrictStop);
  EXPECT_EQ(mof.TakeMessages(), "1:23: error: unknown escape; the back-slash is read as itself");
  mof.LoadText("class D : A { };");
  EXPECT_TRUE(mof.Has("D"));
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

}  // namespace NZELVYR20

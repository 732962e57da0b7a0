#include <gtest/gtest.h>

#include <boost/algorithm/string/replace.hpp>
#include <sstream>

#include "Cases.h"
#include "TLoadedMof.h"

namespace NZELVYR20 {

static const std::string kBase =
    ReadData("qualifiers.mof") +
    "class Ok { [Key] string Id; };\n"
    "[Association] class Link { [Key] Ok REF Left; [Key] Ok REF Right; };\n"
    "instance of Ok { Id = \"1\"; };";

/// The first error or warning, as a strict load says it.
static std::string FindFirstFault(const std::string& messages) {
  std::istringstream lines(messages);
  for (std::string line; std::getline(lines, line);) {
    if (line.find(": note: ") != std::string::npos) continue;
    return boost::algorithm::replace_first_copy(line, ": warning: ", ": error: ");
  }
  return {};
}

/// What a strict load says last where it stops. The loader is then as good as new.
static std::string LoadStrictly(const std::string& text) {
  TMofOptions strict;
  strict.isStrict = true;
  TLoadedMof mof(kBase, strict);
  try {
    mof.LoadText(text);
    return {};
  } catch (const TMofStrictStop&) {
    const std::string messages = mof.TakeMessages();
    EXPECT_EQ(mof.LoadText("class After : Ok { };").TakeMessages(), "");
    EXPECT_TRUE(mof.GetNamespace()->GetClass("After", {}));
    return messages.substr(messages.rfind('\n') + 1);
  }
}

/// What is wrong is named with its place, and left out; what is right beside it is entered, and
/// reads back. A strict load stops at the first fault.
TEST(TMofLoaderTest, WhatIsWrongIsNamedAndLeftOut) {
  CheckCases("loader.txt", [](const std::string& text) {
    TLoadedMof mof(kBase);
    EXPECT_EQ(mof.TakeMessages(), "");
    const std::string messages = mof.LoadText(text + "\nclass Beside : Ok { };").TakeMessages();
    EXPECT_TRUE(mof.GetNamespace()->GetClass("Beside", {})) << text;
    TLoadedMof again(mof.Write());
    EXPECT_EQ(FindFirstFault(again.TakeMessages()), "") << text;
    EXPECT_EQ(LoadStrictly(text), FindFirstFault(messages)) << text;
    const std::string summary = mof.GetSummary().ToString();
    return messages + (messages.empty() ? "" : "\n") + summary.substr(summary.find("qualifiers"));
  });
}

TEST(TMofLoaderTest, LongChainsDoNotExhaustTheStack) {
  std::string text =
      "class A { [Key] string Id; };\n"
      "[Association] class M { [Key] string Id; A REF To; };\n"
      "[Association] class N : M { M REF Next; };\n"
      "instance of A as $A { Id = \"a\"; };\n";
  constexpr int kLength = 20000;
  for (int index = 0; index < kLength; ++index) {
    const std::string number = std::to_string(index);
    text.append("instance of N as $N" + number + " { Id = \"" + number + "\"; To = $A; Next = $N");
    text.append(std::to_string(index + 1) + "; };\n");
  }
  text += "instance of M as $N" + std::to_string(kLength) + " { Id = \"end\"; To = $A; };\n";
  TLoadedMof mof(ReadData("qualifiers.mof") + text);
  EXPECT_EQ(mof.TakeMessages(), "");
  EXPECT_EQ(mof.GetSummary().instances.declared, kLength + 2U);
}

}  // namespace NZELVYR20

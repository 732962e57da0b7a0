#include <gtest/gtest.h>
#include <sys/stat.h>

#include <boost/algorithm/string/replace.hpp>
#include <sstream>

#include "Cases.h"
#include "TLoadedMof.h"
#include "TSampleTree.h"

namespace NZELVYR20 {

static const std::string kBase = ReadData("qualifiers.mof") + ReadData("base.mof");

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
    EXPECT_TRUE(mof.nameSpace->GetClass("After", {}));
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
    EXPECT_TRUE(mof.nameSpace->GetClass("Beside", {})) << text;
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
    text.append("instance of N as $N").append(number).append(" { Id = \"").append(number);
    text.append("\"; To = $A; Next = $N").append(std::to_string(index + 1)).append("; };\n");
  }
  text += "instance of M as $N" + std::to_string(kLength) + " { Id = \"end\"; To = $A; };\n";
  TLoadedMof mof(ReadData("qualifiers.mof") + text);
  EXPECT_EQ(mof.TakeMessages(), "");
  EXPECT_EQ(mof.GetSummary().instances.declared, kLength + 2U);
}

/// What is said of a file or folder, and what came of it.
TEST(TMofLoaderTest, EachFileIsReadOrIsOneError) {
  const std::string folder = DATA_DIR "/files/";
  TMofOptions options;
  options.searchPath = {folder + "nowhere", folder + "search"};
  options.deepestInclude = 3;
  options.largestFile = 300;
  CheckCases("files.txt", [&](const std::string& file) {
    TLoadedMof mof(ReadData("qualifiers.mof"), options);
    const std::string messages = mof.LoadFile(folder + file).TakeMessages();
    return boost::algorithm::replace_all_copy(messages, folder, "") +
           (messages.empty() ? "" : "\n") + mof.GetSummary().ToString();
  });
}

/// What would make a reader wait is not opened, however it is met.
TEST(TMofLoaderTest, PipesAndDevicesAreOneError) {
  const TSampleTree tree;
  const std::string folder = tree.GetRoot() + '/';
  ASSERT_EQ(::mkfifo((folder + "pipe.mof").c_str(), 0600), 0);
  tree.Write("/in/start.mof", "#pragma include (\"../pipe.mof\")");
  tree.Write("/needs/start.mof", "class A : pipe { };");
  TMofOptions options;
  options.searchPath = {folder};
  const std::pair<std::string, unsigned> rows[] = {{folder, 1},
                                                   {folder + "pipe.mof", 1},
                                                   {folder + "in", 1},
                                                   {folder + "needs", 2},
                                                   {"/dev/zero", 1}};
  for (const auto& [path, errors] : rows) {
    TLoadedMof mof("", options);
    const std::string messages = mof.LoadFile(path).TakeMessages();
    EXPECT_NE(messages.find("This is a pipe, a device or a socket"), std::string::npos) << messages;
    EXPECT_EQ(mof.GetSummary().errors, errors) << path;
  }
}

}  // namespace NZELVYR20

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <boost/algorithm/string/replace.hpp>

#include "Cases.h"
#include "TLoadedMof.h"
#include "TSampleTree.h"

namespace NZELVYR20 {

/// What is said of a file or folder, and what came of it.
TEST(TMofFilesTest, EachIsReadOrIsOneError) {
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
TEST(TMofFilesTest, PipesAndDevicesAreOneError) {
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

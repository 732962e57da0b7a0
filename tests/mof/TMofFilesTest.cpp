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
    TLoadedMof mof("", options);
    const TMofSummary before = mof.GetSummary();
    const std::string messages = mof.LoadFile(folder + file).TakeMessages();
    const TMofSummary summary = mof.GetSummary();
    return boost::algorithm::replace_all_copy(messages, folder, "") +
           (messages.empty() ? "" : "\n") + std::to_string(summary.files - before.files) +
           " read, " + std::to_string(summary.classes.declared) + " classes, " +
           std::to_string(summary.instances.declared) + " instances";
  });
}

/// What would make a reader wait is not opened, however it is met.
TEST(TMofFilesTest, PipesAndDevicesAreOneError) {
  const TSampleTree tree;
  const std::string& folder = tree.GetRoot();
  ASSERT_EQ(::mkfifo((folder + "/pipe.mof").c_str(), 0600), 0);
  tree.Write("/in/start.mof", "#pragma include (\"../pipe.mof\")");
  TMofOptions options;
  options.searchPath = {folder};
  for (const std::string& path :
       {folder, folder + "/pipe.mof", folder + "/in", std::string("/dev/zero")}) {
    TLoadedMof mof("", options);
    const std::string messages = mof.LoadFile(path).TakeMessages();
    EXPECT_NE(messages.find("This is a pipe, a device or a socket"), std::string::npos) << messages;
    EXPECT_EQ(mof.GetSummary().errors, 1U);
  }
  TLoadedMof mof("class A : pipe { };", options);
  EXPECT_EQ(mof.GetSummary().errors, 2U) << mof.TakeMessages();
}

}  // namespace NZELVYR20

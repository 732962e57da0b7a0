#include <gtest/gtest.h>

#include <boost/algorithm/string/replace.hpp>

#include "Cases.h"
#include "TLoadedMof.h"

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

}  // namespace NZELVYR20

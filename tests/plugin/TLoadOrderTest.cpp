#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

/// A whole life of a process that has none of the libraries to begin with; it has to end cleanly
/// too, which the sanitizers and valgrind judge.
struct TLoadOrder {
  const char* name;
  const char* steps;  ///< each a verb and one of the libraries core, plugin and user
};

class TLoadOrderTest : public ::testing::TestWithParam<TLoadOrder> {
 protected:
  static std::vector<std::string> GetWords(const char* steps) {
    // The user's static namespaces last until it goes.
    static const std::map<std::string, std::string> kFiles{
        {"core", VYRCORE_PATH}, {"plugin", INMEM_PLUGIN_PATH}, {"user", USE_REPOSITORY_PATH}};
    std::vector<std::string> words{LOAD_STEPS_PATH};
    std::istringstream rest(steps);
    for (std::string verb, file; rest >> verb >> file;) words.push_back(verb + kFiles.at(file));
    return words;
  }
};

TEST_P(TLoadOrderTest, ProcessRunsAndEndsCleanly) {
  std::vector<std::string> words = GetWords(GetParam().steps);
  const auto run = [&] {
    std::vector<char*> arguments(words.size() + 1, nullptr);
    std::transform(words.begin(), words.end(), arguments.begin(),
                   [](std::string& word) { return word.data(); });
    execv(LOAD_STEPS_PATH, arguments.data());
    _exit(127);
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "^$");
}

INSTANTIATE_TEST_SUITE_P(
    Orders, TLoadOrderTest,
    ::testing::Values(
        TLoadOrder{"CoreFirst", "now: core now: plugin now: user use: user"},
        TLoadOrder{"PluginFirst", "now: plugin now: user use: user now: core"},
        TLoadOrder{"LazyPluginFirst", "lazy: plugin lazy: user use: user"},
        TLoadOrder{"NamespacesOutliveThePlugin", "now: user lazy: plugin use: user use: user"},
        TLoadOrder{"LoadedAgainInTheOtherMode",
                   "lazy: plugin now: plugin now: user use: user close: plugin use: user "
                   "close: plugin"},
        TLoadOrder{"ClosedWhileNamespacesLive",
                   "now: plugin now: user use: user close: plugin use: user now: plugin use: user"},
        TLoadOrder{"EverythingClosed",
                   "now: core now: plugin now: user use: user close: core close: plugin "
                   "close: user"},
        TLoadOrder{"UserLeavesAndComesBack",
                   "now: plugin now: user use: user close: user now: user use: user"},
        TLoadOrder{"LoadedAndClosedUnused", "now: plugin close: plugin"},
        TLoadOrder{"LoadedFromTwoThreads",
                   "twice:now: plugin now: user use: user twice:close: plugin"},
        TLoadOrder{"ANamespaceInEachThread",
                   "lazy: plugin now: user twice:use: user twice:use: user"},
        TLoadOrder{"LoadedAndUsedFromTwoThreads",
                   "twice:lazy: user twice:lazy: plugin twice:use: user"}),
    [](const auto& order) { return order.param.name; });

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

const std::string kPlugin = INMEM_PLUGIN_PATH;
const std::string kCore = VYRCORE_PATH;
const std::string kUser = USE_REPOSITORY_PATH;  ///< its static namespaces last until it goes

/// A whole life of a process that has none of the libraries to begin with; it has to end cleanly
/// too, which the sanitizers and valgrind judge.
struct TLoadOrder {
  const char* name;
  std::vector<std::string> steps;
};

class TLoadOrderTest : public ::testing::TestWithParam<TLoadOrder> {};

TEST_P(TLoadOrderTest, ProcessRunsAndEndsCleanly) {
  std::vector<std::string> words = GetParam().steps;
  words.insert(words.begin(), LOAD_STEPS_PATH);
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
        TLoadOrder{"CoreFirst", {"now:" + kCore, "now:" + kPlugin, "now:" + kUser, "use:" + kUser}},
        TLoadOrder{"PluginFirst",
                   {"now:" + kPlugin, "now:" + kUser, "use:" + kUser, "now:" + kCore}},
        TLoadOrder{"LazyPluginFirst", {"lazy:" + kPlugin, "lazy:" + kUser, "use:" + kUser}},
        TLoadOrder{"NamespacesOutliveThePlugin",
                   {"now:" + kUser, "lazy:" + kPlugin, "use:" + kUser, "use:" + kUser}},
        TLoadOrder{"LoadedAgainInTheOtherMode",
                   {"lazy:" + kPlugin, "now:" + kPlugin, "now:" + kUser, "use:" + kUser,
                    "close:" + kPlugin, "use:" + kUser, "close:" + kPlugin}},
        TLoadOrder{"ClosedWhileNamespacesLive",
                   {"now:" + kPlugin, "now:" + kUser, "use:" + kUser, "close:" + kPlugin,
                    "use:" + kUser, "now:" + kPlugin, "use:" + kUser}},
        TLoadOrder{"EverythingClosed",
                   {"now:" + kCore, "now:" + kPlugin, "now:" + kUser, "use:" + kUser,
                    "close:" + kCore, "close:" + kPlugin, "close:" + kUser}},
        TLoadOrder{"UserLeavesAndComesBack",
                   {"now:" + kPlugin, "now:" + kUser, "use:" + kUser, "close:" + kUser,
                    "now:" + kUser, "use:" + kUser}},
        TLoadOrder{"LoadedAndClosedUnused", {"now:" + kPlugin, "close:" + kPlugin}},
        TLoadOrder{
            "LoadedFromTwoThreads",
            {"twice:now:" + kPlugin, "now:" + kUser, "use:" + kUser, "twice:close:" + kPlugin}},
        TLoadOrder{"ANamespaceInEachThread",
                   {"lazy:" + kPlugin, "now:" + kUser, "twice:use:" + kUser, "twice:use:" + kUser}},
        TLoadOrder{"LoadedAndUsedFromTwoThreads",
                   {"twice:lazy:" + kUser, "twice:lazy:" + kPlugin, "twice:use:" + kUser}}),
    [](const auto& order) { return order.param.name; });

}  // namespace
}  // namespace NZELVYR20

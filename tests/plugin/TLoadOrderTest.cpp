#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

const std::string plugin = INMEM_PLUGIN_PATH;
const std::string core = VYRCORE_PATH;
const std::string user = USE_REPOSITORY_PATH;  ///< its static namespaces last until it goes

/// A whole life of a process that has none of the libraries to begin with; it has to end cleanly
/// too, which the sanitizers and valgrind judge.
struct TLoadOrder {
  const char* name;
  std::vector<std::string> steps;
};

class TLoadOrderTest : public ::testing::TestWithParam<TLoadOrder> {};

TEST_P(TLoadOrderTest, ProcessRunsAndEndsCleanly) {
  std::vector<const char*> arguments = {LOAD_STEPS_PATH};
  for (const std::string& step : GetParam().steps) arguments.push_back(step.c_str());
  arguments.push_back(nullptr);
  const auto run = [&] {
    execv(LOAD_STEPS_PATH, const_cast<char* const*>(arguments.data()));
    _exit(127);
  };
  EXPECT_EXIT(run(), ::testing::ExitedWithCode(0), "^$");
}

INSTANTIATE_TEST_SUITE_P(
    Orders, TLoadOrderTest,
    ::testing::Values(
        TLoadOrder{"CoreFirst", {"now:" + core, "now:" + plugin, "now:" + user, "use:" + user}},
        TLoadOrder{"PluginFirst", {"now:" + plugin, "now:" + user, "use:" + user, "now:" + core}},
        TLoadOrder{"LazyPluginFirst", {"lazy:" + plugin, "lazy:" + user, "use:" + user}},
        TLoadOrder{"NamespacesOutliveThePlugin",
                   {"now:" + user, "lazy:" + plugin, "use:" + user, "use:" + user}},
        TLoadOrder{"LoadedAgainInTheOtherMode",
                   {"lazy:" + plugin, "now:" + plugin, "now:" + user, "use:" + user,
                    "close:" + plugin, "use:" + user, "close:" + plugin}},
        TLoadOrder{"ClosedWhileNamespacesLive",
                   {"now:" + plugin, "now:" + user, "use:" + user, "close:" + plugin, "use:" + user,
                    "now:" + plugin, "use:" + user}},
        TLoadOrder{"EverythingClosed",
                   {"now:" + core, "now:" + plugin, "now:" + user, "use:" + user, "close:" + core,
                    "close:" + plugin, "close:" + user}},
        TLoadOrder{"UserLeavesAndComesBack",
                   {"now:" + plugin, "now:" + user, "use:" + user, "close:" + user, "now:" + user,
                    "use:" + user}},
        TLoadOrder{"LoadedAndClosedUnused", {"now:" + plugin, "close:" + plugin}},
        TLoadOrder{"LoadedFromTwoThreads",
                   {"twice:now:" + plugin, "now:" + user, "use:" + user, "twice:close:" + plugin}},
        TLoadOrder{"ANamespaceInEachThread",
                   {"lazy:" + plugin, "now:" + user, "twice:use:" + user, "twice:use:" + user}},
        TLoadOrder{"LoadedAndUsedFromTwoThreads",
                   {"twice:lazy:" + user, "twice:lazy:" + plugin, "twice:use:" + user}}),
    [](const auto& order) { return order.param.name; });

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

/// Of steps, each a verb and one of the libraries core, plugin and user.
std::vector<std::string> GetWords(const std::string& steps) {
  // The user's static namespaces last until it goes.
  static const std::map<std::string, std::string> kFiles{
      {"core", VYRCORE_PATH}, {"plugin", INMEM_PLUGIN_PATH}, {"user", USE_REPOSITORY_PATH}};
  std::vector<std::string> words{LOAD_STEPS_PATH};
  std::istringstream rest(steps);
  for (std::string verb, file; rest >> verb >> file;) words.push_back(verb + kFiles.at(file));
  return words;
}

void Execute(std::vector<std::string> words) {
  std::vector<char*> arguments(words.size() + 1, nullptr);
  std::transform(words.begin(), words.end(), arguments.begin(),
                 [](std::string& word) { return word.data(); });
  execv(LOAD_STEPS_PATH, arguments.data());
  _exit(127);
}

/// Each is the whole life of a process that has none of the libraries to begin with; it has to end
/// cleanly too, which the sanitizers and valgrind judge.
TEST(TLoadOrderTest, ProcessesRunAndEndCleanly) {
  for (const char* steps : {
           "now: core now: plugin now: user use: user",
           "now: plugin now: user use: user now: core",
           "lazy: plugin lazy: user use: user",
           "now: user lazy: plugin use: user use: user",  // namespaces outlive the plug-in
           "lazy: plugin now: plugin now: user use: user close: plugin use: user close: plugin",
           "now: plugin now: user use: user close: plugin use: user now: plugin use: user",
           "now: core now: plugin now: user use: user close: core close: plugin close: user",
           "now: plugin now: user use: user close: user now: user use: user",
           "now: plugin close: plugin",
           "twice:now: plugin now: user use: user twice:close: plugin",
           "lazy: plugin now: user twice:use: user twice:use: user",
           "twice:lazy: user twice:lazy: plugin twice:use: user",
       }) {
    EXPECT_EXIT(Execute(GetWords(steps)), ::testing::ExitedWithCode(0), "^$") << steps;
  }
}

}  // namespace
}  // namespace NZELVYR20

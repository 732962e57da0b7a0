#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <regex>
#include <string>

#include "Cases.h"
#include "TVyrhost.h"

namespace NZELVYR20 {
namespace {

const std::string kPort =
    "CIM_EthernetPort.CreationClassName=\"CIM_EthernetPort\",DeviceID=\"eth0\","
    "SystemCreationClassName=\"CIM_ComputerSystem\",SystemName=\"box\"";

struct VyrhostHistory : testing::Test, TVyrhost {
  VyrhostHistory() { setenv("LC_ALL", "C", 1); }
  ~VyrhostHistory() override {
    earlier_.empty() ? unsetenv("LC_ALL") : setenv("LC_ALL", earlier_.c_str(), 1);
  }

  std::string Mtu(int value) const {
    return Write("sys/class/net/eth0/mtu", std::to_string(value) + '\n');
  }

 private:
  const char* const set_ = std::getenv("LC_ALL");
  const std::string earlier_ = set_ == nullptr ? "" : set_;
};

TEST_F(VyrhostHistory, Commands) {
  Mtu(1500);
  const std::string old = Write("old.mof", "earlier");
  ASSERT_EQ(Execute({"--quiet", "snapshot", old}).status, 0);
  const std::string text = ReadFile(old);
  const std::string head = "// machine: box\n// time: 20..-..-..T..:..:..Z\n\nQualifier ";
  EXPECT_TRUE(std::regex_search(text.substr(0, head.size()), std::regex(head))) << text;
  Mtu(9000);
  Write("proc/meminfo", "MemFree: 5 kB\n");
  const std::string now = Write("new.mof", "");
  EXPECT_EQ(Execute({"--quiet", "snapshot", "-"}, ">" + now).status, 0);
  const TWords words = {{"$old", old},
                        {"$new", now},
                        {"$port", kPort},
                        {"$half", Write("half.mof", text.substr(0, text.size() - 9))}};
  CheckCommands("history.txt", words);
  const std::string notes = Execute({"instances", "CIM_System"}).errors;
  EXPECT_EQ(Execute({"watch", "--every", "0", "--rounds", "3"}).errors, notes) << "each once";
}

TEST_F(VyrhostHistory, WhereThereIsNoRoomTheOldSnapshotStays) {
  const std::string file = Write("snapshots/s.mof", "earlier");
  const std::string link = GetRoot() + "/link";
  std::filesystem::create_symlink(file, link);
  rlimit earlier{};
  getrlimit(RLIMIT_FSIZE, &earlier);
  const rlimit small{rlim_t{4096}, earlier.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const TOutcome full = Execute({"--quiet", "snapshot", link});
  setrlimit(RLIMIT_FSIZE, &earlier);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.errors, "vyrhost: error: " + link + ": File too large\n");
  EXPECT_EQ(ReadFile(file), "earlier");
  EXPECT_EQ(Execute({"--quiet", "snapshot", link}).status, 0);
  EXPECT_EQ(ReadFile(file).substr(0, 11), "// machine:");
  EXPECT_TRUE(std::filesystem::is_symlink(link));
  const std::filesystem::directory_iterator left(GetRoot() + "/snapshots");
  EXPECT_EQ(std::distance(begin(left), end(left)), 1) << "nothing is left beside it";
}

/// By a signal, or because nobody reads any more: then it does not wait for a change.
TEST_F(VyrhostHistory, AWatchTellsChangesUntilItIsEnded) {
  for (const int signal : {SIGINT, SIGTERM, 0}) {
    SCOPED_TRACE(signal);
    int ends[2] = {-1, -1};
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      dup2(ends[1], STDOUT_FILENO);
      close(ends[0]);
      close(ends[1]);
      std::string words[] = {VYRHOST_PATH, "--root",  GetRoot(), "--quiet",
                             "watch",      "--every", "0.01"};
      char* arguments[std::size(words) + 1] = {};
      std::transform(std::begin(words), std::end(words), arguments,
                     [](auto& word) { return word.data(); });
      execv(VYRHOST_PATH, arguments);
      _exit(127);
    }
    close(ends[1]);
    pollfd reader{ends[0], POLLIN, 0};
    for (int mtu = 1500; poll(&reader, 1, 20) == 0;) Mtu(++mtu);
    std::string output;
    char piece = 0;
    if (signal != 0) kill(child, signal);
    while (signal != 0 && read(ends[0], &piece, 1) == 1) output += piece;
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, W_EXITCODE(signal == 0 ? 1 : 0, 0));
    // The file may be read while it is written, and be empty.
    const std::string line = "Z changed " + kPort +
                             ": ActiveMaximumTransmissionUnit: (no value|[0-9]+ Bytes) -> "
                             "(no value|[0-9]+ Bytes)\n";
    EXPECT_TRUE(signal == 0 || std::regex_match(output, std::regex("(20.{17}" + line + ")+")))
        << output;
  }
}

}  // namespace
}  // namespace NZELVYR20

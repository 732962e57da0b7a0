#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <vector>

#include "Cases.h"
#include "TClient.h"
#include "TSampleTree.h"

namespace NZELVYR20 {
namespace {

/// Tries again until something has come about, or much longer than it takes.
template <typename TTry>
bool Await(const TTry& attempt) {
  for (int count = 0; count < 3000; ++count) {
    if (attempt()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return false;
}

/// The program, serving a small machine on a port of its own.
class TServing {
 public:
  explicit TServing(std::vector<std::string> arguments) {
    using std::filesystem::perms;
    tree_.Write("/root/proc/sys/kernel/hostname", "box\n");
    permissions(std::filesystem::path(tree_.GetRoot()), perms::others_exec | perms::others_read,
                std::filesystem::perm_options::add);
    const std::vector<std::string> first = {VYRHOST_PATH, "--root", tree_.GetRoot() + "/root",
                                            "serve",      "--port", "0"};
    arguments.insert(arguments.begin(), first.begin(), first.end());
    std::vector<char*> words;
    words.reserve(arguments.size() + 1);
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, GetLog().c_str(), O_CREAT | O_WRONLY,
                                     0600);
    EXPECT_EQ(posix_spawn(&process_, VYRHOST_PATH, &actions, nullptr, words.data(), environ), 0);
    posix_spawn_file_actions_destroy(&actions);
    EXPECT_TRUE(Await([&] { return ReadFile(GetLog()).find("/\n") != std::string::npos; }));
  }
  ~TServing() {
    EXPECT_EQ(kill(process_, SIGTERM), 0);
    int status = -1;
    waitpid(process_, &status, 0);
    EXPECT_EQ(status, 0);
  }
  TServing(const TServing&) = delete;
  TServing& operator=(const TServing&) = delete;

  pid_t GetProcess() const { return process_; }
  const TSampleTree& GetTree() const { return tree_; }
  std::string GetLog() const { return tree_.GetRoot() + "/log"; }

  std::string Get(const std::string& path) const {
    const std::string log = ReadFile(GetLog());
    const std::string before = "at http://127.0.0.1:";
    const TClient client(std::stoi(log.substr(log.find(before) + before.size())));
    client.Send("GET " + path + " HTTP/1.0\r\n\r\n");
    return client.ReceiveAll();
  }

 private:
  TSampleTree tree_;
  pid_t process_ = -1;
};

TEST(ServeCommandTest, CollectsAnewBetweenRequests) {
  const TServing serving({"--every", "0.05", "--keep-privileges"});
  const std::string page = "/class/CIM_EthernetPort/instances";
  EXPECT_EQ(serving.Get(page).find("eth7"), std::string::npos);
  serving.GetTree().Write("/root/sys/class/net/eth7/type", "1\n");
  EXPECT_TRUE(Await([&] { return serving.Get(page).find("eth7") != std::string::npos; }));
  EXPECT_NE(ReadFile(serving.GetLog()).find("serving box at http://127.0.0.1:"), std::string::npos);
}

/// Root is somebody else from then on, in every thread.
TEST(ServeCommandTest, GivesUpPrivileges) {
  if (geteuid() != 0) GTEST_SKIP() << "only root has any";
  const TServing serving({"--user", "daemon"});
  const std::string status = "/proc/" + std::to_string(serving.GetProcess()) + "/task/";
  EXPECT_EQ(serving.Get("/").substr(9, 3), "200");
  for (const auto& task : std::filesystem::directory_iterator(status)) {
    const std::string text = ReadFile(task.path().string() + "/status");
    EXPECT_NE(text.find("\nUid:\t1\t1\t1\t1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nGid:\t1\t1\t1\t1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nGroups:\t1 \n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nNoNewPrivs:\t1\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\nCapPrm:\t0000000000000000\n"), std::string::npos) << text;
  }
}

/// Rather than a machine of which nothing can be read.
TEST(ServeCommandTest, DoesNotServeARootThatItMayNotRead) {
  if (geteuid() != 0) GTEST_SKIP() << "only root has privileges to give up";
  const TSampleTree closed;
  const std::string command = std::string(VYRHOST_PATH) + " --root " + closed.GetRoot() +
                              " serve --port 0 2>" + closed.GetRoot() + "/log";
  const int status = std::system(command.c_str());  // NOLINT: no text of others
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_EQ(ReadFile(closed.GetRoot() + "/log"), "vyrhost: error: --root \"" + closed.GetRoot() +
                                                     "\" without root's privileges: "
                                                     "Permission denied\n");
}

}  // namespace
}  // namespace NZELVYR20

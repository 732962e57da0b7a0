#include "RunFilter.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

using TClock = std::chrono::steady_clock;

constexpr std::chrono::seconds kLongest{60};

[[noreturn]] void Fail(const std::string& program, const std::string& why) {
  throw TCommandError(program + ": " + why);
}

std::string ReasonOf(int error) { return std::generic_category().message(error); }

class TPipe {
 public:
  TPipe() {
    if (pipe2(ends_.data(), O_CLOEXEC) != 0) Fail("pipe", ReasonOf(errno));
  }
  TPipe(const TPipe&) = delete;
  TPipe& operator=(const TPipe&) = delete;
  ~TPipe() {
    CloseReader();
    CloseWriter();
  }

  int GetReader() const { return ends_[0]; }
  int GetWriter() const { return ends_[1]; }
  void CloseReader() { Close(ends_[0]); }
  void CloseWriter() { Close(ends_[1]); }

 private:
  static void Close(int& end) {
    if (end >= 0) close(end);
    end = -1;
  }

  std::array<int, 2> ends_{-1, -1};
};

/// A program that runs, with pipes to and from it. It does not outlive the object.
class TFilter {
 public:
  explicit TFilter(const std::vector<std::string>& command) : name_(command.front()) {
    Start(command);
    input_.CloseReader();
    output_.CloseWriter();
    errors_.CloseWriter();
    fcntl(input_.GetWriter(), F_SETFL, O_NONBLOCK);
  }
  TFilter(const TFilter&) = delete;
  TFilter& operator=(const TFilter&) = delete;
  ~TFilter() {
    if (child_ <= 0) return;
    kill(child_, SIGKILL);
    Wait();
  }

  /// 0, or the error number for which it could not be started.
  int GetStartError() const { return startError_; }

  /// Passes everything in and out.
  void Pump(std::string_view text);

  /// Its exit status, negative for a signal.
  int Wait() {
    int status = 0;
    while (waitpid(child_, &status, 0) < 0 && errno == EINTR) {
    }
    child_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  const std::string& GetOutput() const { return outputText_; }
  const std::string& GetErrors() const { return errorText_; }

 private:
  void Start(const std::vector<std::string>& command);
  void Feed(std::string_view& text);
  static void Read(TPipe& pipe, std::string& text);

  std::string name_;
  TPipe input_, output_, errors_;
  std::string outputText_, errorText_;
  pid_t child_ = 0;
  int startError_ = 0;
};

void TFilter::Start(const std::vector<std::string>& command) {
  std::vector<std::string> words = command;
  std::vector<char*> arguments;
  arguments.reserve(words.size() + 1);
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_init(&actions);
  posix_spawnattr_init(&attributes);
  posix_spawn_file_actions_adddup2(&actions, input_.GetReader(), STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output_.GetWriter(), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors_.GetWriter(), STDERR_FILENO);
  // This process ignores broken pipes; others need not know what to do about them.
  sigset_t pipeOnly;
  sigemptyset(&pipeOnly);
  sigaddset(&pipeOnly, SIGPIPE);
  posix_spawnattr_setsigdefault(&attributes, &pipeOnly);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  startError_ =
      posix_spawnp(&child_, name_.c_str(), &actions, &attributes, arguments.data(), environ);
  if (startError_ != 0) child_ = 0;
  posix_spawnattr_destroy(&attributes);
  posix_spawn_file_actions_destroy(&actions);
}

/// What is not read any more is not needed.
void TFilter::Feed(std::string_view& text) {
  const ssize_t written = write(input_.GetWriter(), text.data(), text.size());
  if (written >= 0) text.remove_prefix(static_cast<std::size_t>(written));
  const bool isOver = written < 0 && errno != EINTR && errno != EAGAIN;
  if (text.empty() || isOver) input_.CloseWriter();
}

void TFilter::Read(TPipe& pipe, std::string& text) {
  std::array<char, std::size_t{1} << 16U> piece{};
  const ssize_t count = read(pipe.GetReader(), piece.data(), piece.size());
  if (count > 0) text.append(piece.data(), static_cast<std::size_t>(count));
  if (count == 0 || (count < 0 && errno != EINTR)) pipe.CloseReader();
}

void TFilter::Pump(std::string_view text) {
  const auto end = TClock::now() + kLongest;
  while (output_.GetReader() >= 0 || errors_.GetReader() >= 0) {
    // A closed one is -1, and poll passes over it.
    std::array<pollfd, 3> ends{{{input_.GetWriter(), POLLOUT, 0},
                                {output_.GetReader(), POLLIN, 0},
                                {errors_.GetReader(), POLLIN, 0}}};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - TClock::now());
    const int ready = poll(ends.data(), ends.size(), std::max(0, static_cast<int>(left.count())));
    if (ready == 0) Fail(name_, "took longer than a minute; ask for a smaller picture");
    if (ready < 0) continue;
    if (ends[0].revents != 0) Feed(text);
    if (ends[1].revents != 0) Read(output_, outputText_);
    if (ends[2].revents != 0) Read(errors_, errorText_);
  }
}

}  // namespace

std::string RunFilter(const std::vector<std::string>& command, const std::string& input,
                      const std::string& package) {
  TFilter filter(command);
  if (filter.GetStartError() == ENOENT) {
    Fail(command.front(), "no such program; it is part of the package " + package);
  }
  if (filter.GetStartError() != 0) Fail(command.front(), ReasonOf(filter.GetStartError()));
  filter.Pump(input);
  if (const int status = filter.Wait(); status != 0) {
    const std::string words = filter.GetErrors().substr(0, filter.GetErrors().find('\n'));
    Fail(command.front(), words.empty() ? "failed with status " + std::to_string(status) : words);
  }
  return filter.GetOutput();
}

}  // namespace NZELVYR20

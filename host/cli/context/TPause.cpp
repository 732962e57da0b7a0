#include "TPause.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

/// Of the signals by which people end a program.
sigset_t SelectSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int number : {SIGINT, SIGTERM}) {
    struct sigaction action {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler != SIG_IGN) sigaddset(&signals, number);
  }
  return signals;
}

/// For poll(), which takes so much at most.
int CountMilliseconds(TPause::TClock::duration time) {
  using TMilliseconds = std::chrono::milliseconds;
  const auto ceiling = std::chrono::ceil<TMilliseconds>(time);
  return static_cast<int>(
      std::clamp(ceiling, TMilliseconds(0), TMilliseconds(std::chrono::hours(1))).count());
}

}  // namespace

TPause::TPause() {
  const sigset_t signals = SelectSignals();
  signals_ = TDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
  if (!signals_.IsOpen()) {
    throw TCommandError("signalfd: " + std::generic_category().message(errno));
  }
  pthread_sigmask(SIG_BLOCK, &signals, &earlier_);
}

TPause::~TPause() {
  // What came meanwhile has had its effect.
  signalfd_siginfo info{};
  while (read(signals_.Get(), &info, sizeof info) > 0) {
  }
  pthread_sigmask(SIG_SETMASK, &earlier_, nullptr);
}

TPause::EEnd TPause::Until(TClock::time_point time, EReader reader) const {
  std::array<pollfd, 2> polled = {
      {{signals_.Get(), POLLIN, 0}, {reader == EReader::kMatters ? STDOUT_FILENO : -1, 0, 0}}};
  do {
    if (poll(polled.data(), polled.size(), CountMilliseconds(time - TClock::now())) < 0) continue;
    if (polled[0].revents != 0) return EEnd::kSignal;
    if (polled[1].revents != 0) return EEnd::kNoReader;
  } while (TClock::now() < time);
  return EEnd::kTime;
}

}  // namespace NZELVYR20

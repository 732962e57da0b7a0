#include "TConnection.h"

#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>

#include <algorithm>
#include <array>
#include <utility>

namespace NZELVYR20 {
namespace {

constexpr std::string_view kHeadEnd = "\r\n\r\n";
constexpr std::chrono::milliseconds kDrainTime{500};
constexpr std::size_t kDrainReads = 64;
/// What goes out in the time for one piece.
constexpr std::size_t kPiece = 65536;

int CountMilliseconds(std::chrono::steady_clock::duration time) {
  using TMilliseconds = std::chrono::milliseconds;
  return static_cast<int>(
      std::max(std::chrono::ceil<TMilliseconds>(time), TMilliseconds(0)).count());
}

}  // namespace

TConnection::TConnection(int socket, std::unique_ptr<ITransport> transport,
                         const TServerLimits& limits, int stop)
    : socket_(socket), transport_(std::move(transport)), limits_(limits), stop_(stop) {
  const int on = 1;
  setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
  fcntl(socket, F_SETFL, fcntl(socket, F_GETFL) | O_NONBLOCK);
}

TConnection::~TConnection() { transport_->End(); }

bool TConnection::Wait(short events, TClock::time_point deadline) const {
  std::array<pollfd, 2> polled = {{{socket_.Get(), events, 0}, {stop_, POLLIN, 0}}};
  const auto left = deadline - TClock::now();
  if (left <= TClock::duration::zero()) return false;
  poll(polled.data(), polled.size(), CountMilliseconds(left));
  return polled[1].revents == 0;
}

/// Until one attempt gets somewhere; 0 where time, the connection or the server ended before.
template <typename TTry>
std::size_t TConnection::Repeat(TClock::time_point deadline, const TTry& attempt) const {
  for (;;) {
    const TAttempt attempted = attempt();
    if (attempted.count > 0) return attempted.count;
    if (attempted.waitsFor == 0 || !Wait(attempted.waitsFor, deadline)) return 0;
  }
}

bool TConnection::Fill() {
  std::array<char, 16384> buffer;  // NOLINT(cppcoreguidelines-pro-type-member-init): is written to
  const std::size_t count =
      Repeat(deadline_, [&] { return transport_->Read(buffer.data(), buffer.size()); });
  incoming_.append(buffer.data(), count);
  return count > 0;
}

TConnection::EHead TConnection::ReadHead() {
  deadline_ = TClock::now() + limits_.idleTime;
  if (incoming_.empty() && !Fill()) return EHead::kNone;
  const TClock::time_point begin = TClock::now();
  deadline_ = begin + limits_.headTime;
  for (;;) {
    // An empty line before a request is what some clients end the one before with.
    while (incoming_.compare(0, 2, "\r\n") == 0) incoming_.erase(0, 2);
    const std::size_t line = std::min(incoming_.find("\r\n"), incoming_.size());
    const std::size_t end = incoming_.find(kHeadEnd);
    if (line > limits_.lineBytes) return EHead::kLongLine;
    if (std::min(end, incoming_.size()) > limits_.headBytes) return EHead::kLong;
    if (end != std::string::npos) {
      head_ = incoming_.substr(0, end + kHeadEnd.size());
      incoming_.erase(0, head_.size());
      deadline_ = begin + limits_.readTime;
      return EHead::kWhole;
    }
    if (!Fill()) return TClock::now() >= deadline_ ? EHead::kLate : EHead::kNone;
  }
}

void TConnection::ReplaceHead(std::string head) { head_ = std::move(head); }

void TConnection::Drain() {
  transport_->End();
  deadline_ = TClock::now() + kDrainTime;
  for (std::size_t reads = 0; reads < kDrainReads && Fill(); ++reads) incoming_.clear();
}

ssize_t TConnection::read(char* ptr, size_t size) {
  std::string& source = head_.empty() ? incoming_ : head_;
  if (source.empty() && !Fill()) {
    isCutShort_ = true;
    return -1;
  }
  const std::size_t count = source.copy(ptr, size);
  source.erase(0, count);
  return static_cast<ssize_t>(count);
}

ssize_t TConnection::write(const char* ptr, size_t size) {
  const auto pieces = static_cast<int>(size / kPiece) + 1;
  const auto deadline = TClock::now() + limits_.writeTime * pieces;
  std::size_t written = 0;
  while (written < size) {
    const std::size_t count =
        Repeat(deadline, [&] { return transport_->Write(ptr + written, size - written); });
    if (count == 0) return -1;
    written += count;
  }
  return static_cast<ssize_t>(size);
}

// The library notes them in headers that nobody here reads.
void TConnection::get_remote_ip_and_port(std::string& /*ip*/, int& /*port*/) const {}
void TConnection::get_local_ip_and_port(std::string& /*ip*/, int& /*port*/) const {}

}  // namespace NZELVYR20

#include "TPlainTransport.h"

#include <poll.h>
#include <sys/socket.h>

#include <cerrno>

namespace NZELVYR20 {
namespace {

TAttempt MakeAttempt(ssize_t count, short waitsFor) {
  if (count >= 0) return {static_cast<std::size_t>(count), 0};
  const bool isLater = errno == EAGAIN || errno == EINTR;
  return {0, isLater ? waitsFor : short{0}};
}

}  // namespace

TAttempt TPlainTransport::Read(char* to, std::size_t size) {
  return MakeAttempt(recv(socket_, to, size, MSG_DONTWAIT), POLLIN);
}

TAttempt TPlainTransport::Write(const char* from, std::size_t size) {
  return MakeAttempt(send(socket_, from, size, MSG_DONTWAIT | MSG_NOSIGNAL), POLLOUT);
}

void TPlainTransport::End() { shutdown(socket_, SHUT_WR); }

}  // namespace NZELVYR20

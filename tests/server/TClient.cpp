#include "TClient.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>

namespace NZELVYR20 {

TClient::TClient(int port) : socket_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(static_cast<std::uint16_t>(port));
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  timeval longest{60, 0};
  setsockopt(socket_.Get(), SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest);
  const int small = 4096;  // so that little goes to one who does not read
  setsockopt(socket_.Get(), SOL_SOCKET, SO_RCVBUF, &small, sizeof small);
  const auto* plain = reinterpret_cast<const sockaddr*>(&address);
  EXPECT_EQ(connect(socket_.Get(), plain, sizeof address), 0);
}

void TClient::Send(const std::string& text) const {
  // The server may have closed before everything was sent.
  send(socket_.Get(), text.data(), text.size(), MSG_NOSIGNAL);
}

void TClient::End() const { shutdown(socket_.Get(), SHUT_WR); }

std::string TClient::ReceiveAll() const { return Receive(std::string().max_size()); }

std::string TClient::Receive(std::size_t size) const {
  std::string text;
  std::array<char, 4096> buffer{};
  while (text.size() < size) {
    const ssize_t count =
        recv(socket_.Get(), buffer.data(), std::min(buffer.size(), size - text.size()), 0);
    if (count <= 0) break;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace NZELVYR20

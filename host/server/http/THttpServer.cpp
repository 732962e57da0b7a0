#include "THttpServer.h"

#include <sys/eventfd.h>
#include <sys/socket.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <string>
#include <thread>
#include <utility>

#include "TCommandError.h"
#include "TPlainTransport.h"

namespace NZELVYR20 {
namespace {

/// Unlike the library's own options: no second server may share the port.
void SetSocketOptions(socket_t socket) {
  const int on = 1;
  setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

std::string GetBoundAddress(const std::string& address, int port) {
  return address + " port " + std::to_string(port);
}

}  // namespace

THttpServer::THttpServer(const TServerLimits& limits, TRequestRules rules,
                         std::unique_ptr<TTlsContext> tls)
    : limits_(limits),
      rules_(std::move(rules)),
      tls_(std::move(tls)),
      stop_(eventfd(0, EFD_CLOEXEC)) {
  if (!stop_.IsOpen()) throw TCommandError("eventfd: not available");
  set_socket_options(SetSocketOptions);
  set_keep_alive_max_count(limits.keptRequests);
  set_keep_alive_timeout(std::chrono::duration_cast<std::chrono::seconds>(limits.idleTime).count());
  // What went wrong is nothing for whoever asked.
  set_exception_handler([](const httplib::Request&, httplib::Response& response,
                           const std::exception_ptr&) { response.status = 500; });
}

int THttpServer::Bind(const std::string& address, int port) {
  errno = 0;
  const int taken =
      port == 0 ? bind_to_any_port(address) : (bind_to_port(address, port) ? port : -1);
  // The library would let but five clients wait.
  if (taken < 0 || ::listen(svr_sock_, SOMAXCONN) != 0) {
    throw TCommandError("cannot serve at " + GetBoundAddress(address, port) +
                        (errno == EACCES ? ": only root may take this port"
                                         : ": not an address of this machine, or taken"));
  }
  return taken;
}

void THttpServer::MakeThreads() {
  ownQueue_ = std::make_unique<TConnectionQueue>(limits_);
  queue_ = ownQueue_.get();
  new_task_queue = [this] { return ownQueue_.release(); };
}

bool THttpServer::Run() {
  const bool isStopped = listen_after_bind();
  hasEnded_ = true;
  return isStopped;
}

void THttpServer::Stop() {
  // Before it runs the library takes no notice.
  while (!is_running() && !hasEnded_) std::this_thread::yield();
  eventfd_write(stop_.Get(), 1);
  stop();
}

bool THttpServer::process_and_close_socket(socket_t sock) {
  TDescriptor socket(sock);
  try {
    std::unique_ptr<ITransport> transport =
        tls_ ? tls_->Accept(sock) : std::make_unique<TPlainTransport>(sock);
    TConnection connection(socket.Release(), std::move(transport), limits_, stop_.Get());
    Serve(connection);
  } catch (const std::exception&) {
    return false;  // with this connection alone
  }
  return true;
}

void THttpServer::Serve(TConnection& connection) {
  for (unsigned left = limits_.keptRequests; left > 0; --left) {
    if (!ServeOne(connection, left > 1)) return;
  }
}

/// Whether the connection stays.
bool THttpServer::ServeOne(TConnection& connection, bool mayStay) {
  using EHead = TConnection::EHead;
  const EHead read = connection.ReadHead();
  if (read == EHead::kNone) return false;
  if (read == EHead::kLate) return Refuse(connection, {408, {}});
  if (read == EHead::kLongLine) return Refuse(connection, {414, {}});
  if (read == EHead::kLong) return Refuse(connection, {431, {}});
  const auto head = THttpHead::Parse(connection.GetHead());
  if (!head) return Refuse(connection, {400, {}});
  if (const auto refusal = rules_.Check(*head)) return Refuse(connection, *refusal);
  if (head->Get("Expect") && !connection.HasMore()) {
    connection.write("HTTP/1.1 100 Continue\r\n\r\n");
  }
  const bool isKept = mayStay && IsKept(*head) && !queue_->IsCrowded();
  connection.ReplaceHead(WritePlainHead(*head, isKept));
  bool isClosed = false;
  const bool isAnswered = process_request(connection, !isKept, isClosed, {});
  return isAnswered && isKept && !connection.IsCutShort();
}

bool THttpServer::Refuse(TConnection& connection, const THttpRefusal& refusal) {
  connection.write(refusal.ToString());
  connection.Drain();
  return false;
}

}  // namespace NZELVYR20

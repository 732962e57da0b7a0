#pragma once

#include <httplib.h>

#include <atomic>
#include <memory>

#include "TConnection.h"
#include "TConnectionQueue.h"
#include "TDescriptor.h"
#include "TRequestRules.h"
#include "TServerOptions.h"
#include "TTlsContext.h"

namespace NZELVYR20 {

/// The library's server on connections of our own, which bound time and size, and behind rules that
/// every request keeps before the library sees it.
class THttpServer : public httplib::Server {
 public:
  /// `limits` outlives the object; without `tls` everything goes in the open.
  THttpServer(const TServerLimits& limits, TRequestRules rules, std::unique_ptr<TTlsContext> tls);

  /// Takes the address, for a port 0 one that is free. Returns the port; throws TCommandError.
  int Bind(const std::string& address, int port);
  /// Threads belong to whoever the process is when they are made, and block the same signals.
  void MakeThreads();
  /// After that: serves until Stop(); false where the network failed before.
  bool Run();
  /// From any thread. Answers that are being sent are cut short where the client does not read.
  void Stop();

 private:
  bool process_and_close_socket(socket_t sock) override;
  void Serve(TConnection& connection);
  bool ServeOne(TConnection& connection, bool mayStay);
  static bool Refuse(TConnection& connection, const THttpRefusal& refusal);

  const TServerLimits& limits_;
  TRequestRules rules_;
  std::unique_ptr<TTlsContext> tls_;
  std::atomic<bool> hasEnded_{false};
  TDescriptor stop_;  ///< readable from Stop() on
  std::unique_ptr<TConnectionQueue> ownQueue_;
  TConnectionQueue* queue_ = nullptr;  ///< the same, also while the library has it
};

}  // namespace NZELVYR20

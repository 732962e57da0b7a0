#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <memory>

#include "ICIMNamespace.h"
#include "TServerOptions.h"

namespace NZELVYR20 {

/// Serves a namespace: the protocol's requests, and pages for people. It reads alone.
class TServer {
 public:
  /// Takes the address and reads certificate and passwords, so that whoever has privileges can give
  /// them up afterwards. Throws TCommandError, also where others than this machine could connect
  /// without TLS and a password.
  explicit TServer(TServerOptions options);
  TServer(const TServer&) = delete;
  TServer& operator=(const TServer&) = delete;
  ~TServer();

  /// Such as "http://127.0.0.1:5988/", with the port that was taken.
  const std::string& GetAddress() const;

  /// Says what to serve, and starts the threads that will, once.
  void Attach(const boost::shared_ptr<ICIMNamespace>& nameSpace);
  /// Serves until Stop(); false where the network failed before. Once.
  bool Run();
  /// From another thread than Run(), which is under way or comes.
  void Stop();

  /// Does something that nobody may ask in between.
  void WithoutRequests(const std::function<void()>& work);

 private:
  class TState;
  std::unique_ptr<TState> state_;
};

}  // namespace NZELVYR20

#pragma once

#include <boost/algorithm/string.hpp>
#include <thread>

#include "PluginNamespace.h"
#include "TServer.h"

namespace NZELVYR20 {

/// A server on a port of its own, while the object lives.
class TRunningServer {
 public:
  explicit TRunningServer(TServerOptions options) : server_(WithFreePort(std::move(options))) {
    server_.Attach(AllocatePluginNamespace());
    thread_ = std::thread([this] { server_.Run(); });
  }
  ~TRunningServer() {
    server_.Stop();
    thread_.join();
  }
  TRunningServer(const TRunningServer&) = delete;
  TRunningServer& operator=(const TRunningServer&) = delete;

  int GetPort() const {
    const std::string& address = server_.GetAddress();
    return std::stoi(address.substr(address.rfind(':') + 1));
  }
  TServer& Get() { return server_; }

 private:
  static TServerOptions WithFreePort(TServerOptions options) {
    options.port = 0;
    return options;
  }

  TServer server_;
  std::thread thread_;
};

}  // namespace NZELVYR20

#pragma once

#include <httplib.h>

#include <chrono>
#include <memory>
#include <string>

#include "ITransport.h"
#include "TDescriptor.h"
#include "TServerOptions.h"

namespace NZELVYR20 {

/// A client's connection, on which nothing takes longer than it may: each request and each piece of
/// an answer has its time, however slowly the bytes come and go.
class TConnection : public httplib::Stream {
 public:
  /// How reading a head ended.
  enum class EHead { kWhole, kNone, kLate, kLongLine, kLong };

  /// `socket` belongs to the object. Whatever waits ends when `stop` becomes readable.
  TConnection(int socket, std::unique_ptr<ITransport> transport, const TServerLimits& limits,
              int stop);
  TConnection(const TConnection&) = delete;
  TConnection& operator=(const TConnection&) = delete;
  /// Tells the client that it was the end, and closes.
  ~TConnection() override;

  /// Waits for a request and reads it up to the empty line.
  EHead ReadHead();
  /// Up to and with the empty line.
  const std::string& GetHead() const { return head_; }
  /// What is read in its place, before the rest.
  void ReplaceHead(std::string head);
  /// Whether bytes follow that were read with the head.
  bool HasMore() const { return !incoming_.empty(); }
  /// Whether a request ended before its end.
  bool IsCutShort() const { return isCutShort_; }
  /// Reads for a moment what still comes: closing before would discard the answer.
  void Drain();

  bool is_readable() const override { return true; }
  bool is_writable() const override { return true; }
  ssize_t read(char* ptr, size_t size) override;
  ssize_t write(const char* ptr, size_t size) override;
  using Stream::write;
  void get_remote_ip_and_port(std::string& ip, int& port) const override;
  void get_local_ip_and_port(std::string& ip, int& port) const override;
  socket_t socket() const override { return socket_.Get(); }

 private:
  using TClock = std::chrono::steady_clock;

  bool Fill();
  bool Wait(short events, TClock::time_point deadline) const;
  template <typename TTry>
  std::size_t Repeat(TClock::time_point deadline, const TTry& attempt) const;

  TDescriptor socket_;
  std::unique_ptr<ITransport> transport_;
  const TServerLimits& limits_;
  int stop_;
  bool isCutShort_ = false;
  TClock::time_point deadline_;  ///< for reading
  std::string head_;
  std::string incoming_;  ///< what came and was not read
};

}  // namespace NZELVYR20

#pragma once

#include <string>

#include "TDescriptor.h"

namespace NZELVYR20 {

/// A connection to this machine, on which a test says what it likes.
class TClient {
 public:
  explicit TClient(int port);

  void Send(const std::string& text) const;
  /// Tells the server that nothing more comes.
  void End() const;
  /// What comes until the server closes; ends a test that waits for too long.
  std::string ReceiveAll() const;
  /// The same for as long as it is not so much.
  std::string Receive(std::size_t size) const;

 private:
  TDescriptor socket_;
};

}  // namespace NZELVYR20

#pragma once

#include <cstddef>

namespace NZELVYR20 {

/// What came of one attempt to read or write.
struct TAttempt {
  std::size_t count = 0;  ///< bytes; 0 without anything to wait for: the connection is over
  short waitsFor = 0;     ///< what poll() is to wait for before the next attempt; 0: nothing
};

/// The bytes of a connection as they are meant, whatever goes over the wire. No attempt waits.
class ITransport {
 public:
  virtual ~ITransport() = default;

  virtual TAttempt Read(char* to, std::size_t size) = 0;
  virtual TAttempt Write(const char* from, std::size_t size) = 0;
  /// Tells the other side that nothing more comes.
  virtual void End() = 0;
};

}  // namespace NZELVYR20

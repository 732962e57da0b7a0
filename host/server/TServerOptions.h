#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>

#include "TWbemService.h"

namespace NZELVYR20 {

/// What bounds a server.
struct TServerLimits {
  std::size_t headBytes = 16384;               ///< a request's line and headers
  std::size_t lineBytes = 8000;                ///< the line alone
  std::size_t bodyBytes = 1 << 20;             ///< a request's body
  std::size_t memoryBytes = 1 << 20;           ///< of an answer; the rest goes into a file
  std::uint64_t answerBytes = 1 << 30;         ///< an answer
  std::uint64_t spoolBytes = 4ULL << 30;       ///< all answers that are being sent
  unsigned threads = 32;                       ///< connections that are served at a time
  unsigned connections = 128;                  ///< these, and those that wait for their turn
  unsigned keptRequests = 1000;                ///< on one connection
  std::chrono::milliseconds readTime{30000};   ///< for a request, from its first byte to its last
  std::chrono::milliseconds headTime{5000};    ///< for its line and headers, from its first byte
  std::chrono::milliseconds writeTime{30000};  ///< for each piece of an answer, some 64 KiB
  std::chrono::milliseconds idleTime{5000};    ///< until a request begins
  TWbemLimits protocol;
};

/// Where to serve, and to whom.
struct TServerOptions {
  std::string address = "127.0.0.1";
  int port = 5988;           ///< 0: one that is free
  std::string certificate;   ///< a file in PEM, with those it rests on; empty: no TLS
  std::string key;           ///< its private key
  std::string passwordFile;  ///< empty: whoever can connect may ask
  TServerLimits limits;
};

}  // namespace NZELVYR20

#pragma once

#include "ITransport.h"

namespace NZELVYR20 {

/// A socket as it is, which the caller closes.
class TPlainTransport : public ITransport {
 public:
  explicit TPlainTransport(int socket) : socket_(socket) {}

  TAttempt Read(char* to, std::size_t size) override;
  TAttempt Write(const char* from, std::size_t size) override;
  void End() override;

 private:
  int socket_;
};

}  // namespace NZELVYR20

#pragma once

#include <openssl/ssl.h>

#include <memory>
#include <string>

#include "ITransport.h"

namespace NZELVYR20 {

/// A certificate with its key, and connections under it: TLS 1.2 and later.
class TTlsContext {
 public:
  /// Files in PEM; throws TCommandError, also where others may read the key.
  TTlsContext(const std::string& certificate, const std::string& key);

  /// What goes over a socket, which does not block and which the caller closes later.
  std::unique_ptr<ITransport> Accept(int socket) const;

 private:
  std::unique_ptr<SSL_CTX, void (*)(SSL_CTX*)> context_;
};

}  // namespace NZELVYR20

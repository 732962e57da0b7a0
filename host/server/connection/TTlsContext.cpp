#include "TTlsContext.h"

#include <openssl/err.h>
#include <poll.h>
#include <sys/socket.h>

#include "CheckPrivate.h"
#include "TCommandError.h"

namespace NZELVYR20 {
namespace {

class TTlsTransport : public ITransport {
 public:
  TTlsTransport(SSL_CTX* context, int socket) : ssl_(SSL_new(context), SSL_free), socket_(socket) {
    if (!ssl_ || SSL_set_fd(ssl_.get(), socket) != 1) throw TCommandError("TLS: no connection");
    SSL_set_accept_state(ssl_.get());
  }

  TAttempt Read(char* to, std::size_t size) override {
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_read_ex(ssl_.get(), to, size, &count);
    return MakeAttempt(result, count);
  }

  TAttempt Write(const char* from, std::size_t size) override {
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_write_ex(ssl_.get(), from, size, &count);
    return MakeAttempt(result, count);
  }

  void End() override {
    if (!hasFailed_) SSL_shutdown(ssl_.get());
    shutdown(socket_, SHUT_WR);
  }

 private:
  TAttempt MakeAttempt(int result, std::size_t count) {
    switch (SSL_get_error(ssl_.get(), result)) {
      case SSL_ERROR_NONE:
        return {count, 0};
      case SSL_ERROR_WANT_READ:
        return {0, POLLIN};
      case SSL_ERROR_WANT_WRITE:
        return {0, POLLOUT};
      default:
        hasFailed_ = true;
        return {};
    }
  }

  std::unique_ptr<SSL, void (*)(SSL*)> ssl_;
  int socket_;
  bool hasFailed_ = false;
};

/// A key that needs a password is refused: nobody is there to type it.
int GiveNoPassword(char* /*to*/, int /*size*/, int /*forWriting*/, void* /*data*/) { return -1; }

[[noreturn]] void Fail(const std::string& file) {
  const unsigned long error = ERR_get_error();
  const char* reason = ERR_reason_error_string(error);
  throw TCommandError(file + ": " + (reason ? reason : "cannot be used for TLS"));
}

}  // namespace

TTlsContext::TTlsContext(const std::string& certificate, const std::string& key)
    : context_(SSL_CTX_new(TLS_server_method()), SSL_CTX_free) {
  if (!context_) throw TCommandError("TLS: not available");
  SSL_CTX* context = context_.get();
  CheckPrivate(key);
  SSL_CTX_set_min_proto_version(context, TLS1_2_VERSION);
  SSL_CTX_set_options(context, SSL_OP_NO_RENEGOTIATION | SSL_OP_NO_COMPRESSION);
  SSL_CTX_set_mode(context, SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER);
  SSL_CTX_set_session_cache_mode(context, SSL_SESS_CACHE_OFF);
  SSL_CTX_set_default_passwd_cb(context, GiveNoPassword);
  ERR_clear_error();
  if (SSL_CTX_use_certificate_chain_file(context, certificate.c_str()) != 1) Fail(certificate);
  if (SSL_CTX_use_PrivateKey_file(context, key.c_str(), SSL_FILETYPE_PEM) != 1) Fail(key);
}

std::unique_ptr<ITransport> TTlsContext::Accept(int socket) const {
  return std::make_unique<TTlsTransport>(context_.get(), socket);
}

}  // namespace NZELVYR20

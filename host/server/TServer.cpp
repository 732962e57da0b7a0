#include "TServer.h"

#include <atomic>
#include <boost/algorithm/string.hpp>
#include <mutex>
#include <string>
#include <utility>

#include "TCommandError.h"
#include "THttpServer.h"
#include "TPasswords.h"
#include "TSite.h"
#include "TSpool.h"
#include "TWbemService.h"

namespace NZELVYR20 {
namespace {

using httplib::Request;
using httplib::Response;

constexpr auto kXml = "application/xml; charset=\"utf-8\"";

bool IsLoopback(const std::string& address) {
  in_addr four{};
  in6_addr six{};
  if (inet_pton(AF_INET, address.c_str(), &four) == 1) return (ntohl(four.s_addr) >> 24) == 127;
  if (inet_pton(AF_INET6, address.c_str(), &six) == 1) return IN6_IS_ADDR_LOOPBACK(&six);
  return address == "localhost";
}

TServerOptions CheckOptions(TServerOptions options) {
  if (options.certificate.empty() != options.key.empty()) {
    throw TCommandError("TLS needs both: --tls-certificate and --tls-key");
  }
  if (!IsLoopback(options.address) &&
      (options.certificate.empty() || options.passwordFile.empty())) {
    throw TCommandError("--address " + options.address +
                        ": others could connect, which needs --tls-certificate, --tls-key and "
                        "--password-file");
  }
  return options;
}

std::optional<std::string> GetHeader(const Request& request, const std::string& name) {
  if (!request.has_header(name)) return {};
  return request.get_header_value(name);
}

/// Without Host comes HTTP/1.0 alone: the rules refuse all others.
TCimXmlRequest MakeRequest(const Request& request, std::string body) {
  return {GetHeader(request, "Host").value_or("localhost"),
          GetHeader(request, "Content-Type"),
          GetHeader(request, "CIMOperation"),
          GetHeader(request, "CIMProtocolVersion"),
          GetHeader(request, "CIMMethod"),
          GetHeader(request, "CIMObject"),
          GetHeader(request, "CIMBatch"),
          std::move(body)};
}

void SetReply(Response& response, const TCimXmlReply& reply) {
  response.status = reply.status;
  if (!reply.cimError.empty()) response.set_header("CIMError", reply.cimError);
  if (!reply.detail.empty()) response.set_header("PGErrorDetail", reply.detail);
}

/// The answer goes out piece by piece, and its file goes with the last one who needs it.
void SetBody(Response& response, const std::shared_ptr<TSpool>& spool) {
  response.set_header("CIMOperation", "MethodResponse");
  response.set_content_provider(
      static_cast<std::size_t>(spool->GetSize()), kXml,
      [spool](std::size_t offset, std::size_t length, httplib::DataSink& sink) {
        const std::string_view piece = spool->Read(offset, length);
        return !piece.empty() && sink.write(piece.data(), piece.size());
      });
}

/// Nothing from elsewhere, in no page of others.
void SetPageHeaders(Response& response) {
  response.set_header("Content-Security-Policy",
                      "default-src 'none'; style-src 'self'; script-src 'self'; img-src 'self'; "
                      "form-action 'self'; frame-ancestors 'none'; base-uri 'none'");
  response.set_header("X-Content-Type-Options", "nosniff");
  response.set_header("Referrer-Policy", "same-origin");
  response.set_header("Cache-Control", "no-store");
}

}  // namespace

class TServer::TState {
 public:
  explicit TState(TServerOptions options)
      : options_(CheckOptions(std::move(options))),
        http_(options_.limits, MakeRules(), MakeTls()),
        port_(http_.Bind(options_.address, options_.port)) {
    const bool isSix = boost::contains(options_.address, ":");
    address_ = (options_.certificate.empty() ? "http://" : "https://") +
               (isSix ? '[' + options_.address + ']' : options_.address) + ':' +
               std::to_string(port_) + '/';
  }

  const std::string& GetAddress() const { return address_; }
  void Stop() { http_.Stop(); }
  std::mutex& GetMutex() { return mutex_; }

  bool Run() { return http_.Run(); }

  void Attach(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
    service_ = std::make_unique<TWbemService>(nameSpace, options_.limits.protocol);
    site_ = std::make_unique<TSite>(nameSpace);
    http_.Post(kProtocolPath, [this](const Request& request, Response& response,
                                     const httplib::ContentReader& read) {
      AnswerProtocol(request, response, read);
    });
    // Before the library looks for a pattern that fits, which takes stack for each character.
    http_.set_pre_routing_handler([this](const Request& request, Response& response) {
      if (request.method == "POST") return httplib::Server::HandlerResponse::Unhandled;
      AnswerPage(request, response);
      return httplib::Server::HandlerResponse::Handled;
    });
    http_.MakeThreads();
  }

 private:
  TRequestRules MakeRules() {
    TRequestRules rules{options_.limits.bodyBytes, IsLoopback(options_.address), {}};
    if (!options_.passwordFile.empty()) {
      passwords_ = std::make_unique<TPasswords>(options_.passwordFile);
      rules.admits = [this](const std::string& given) { return passwords_->Admits(given); };
    }
    return rules;
  }

  std::unique_ptr<TTlsContext> MakeTls() const {
    if (options_.certificate.empty()) return {};
    return std::make_unique<TTlsContext>(options_.certificate, options_.key);
  }

  void AnswerProtocol(const Request& request, Response& response,
                      const httplib::ContentReader& read) {
    std::string body;
    const bool isRead = read([this, &body](const char* data, std::size_t size) {
      body.append(data, size);
      return body.size() <= options_.limits.bodyBytes;
    });
    if (!isRead) {
      response.status = body.size() > options_.limits.bodyBytes ? 413 : 400;
      return;
    }
    const auto spool = std::make_shared<TSpool>(options_.limits, spooled_);
    const TCimXmlRequest asked = MakeRequest(request, std::move(body));
    TCimXmlReply reply;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      reply = service_->Answer(asked, *spool);
    }
    SetReply(response, reply);
    if (reply.status == 200) SetBody(response, spool);
  }

  void AnswerPage(const Request& request, Response& response) {
    TSiteAnswer answer;
    {
      const std::lock_guard<std::mutex> lock(mutex_);
      answer = site_->Answer({request.path, {request.params.begin(), request.params.end()}});
    }
    response.status = answer.status;
    response.body = std::move(answer.body);
    response.set_header("Content-Type", answer.type);
    SetPageHeaders(response);
  }

  TServerOptions options_;
  std::unique_ptr<TPasswords> passwords_;
  std::atomic<std::uint64_t> spooled_{0};
  std::mutex mutex_;  ///< who has it may use the namespace
  std::unique_ptr<TWbemService> service_;
  std::unique_ptr<TSite> site_;
  THttpServer http_;
  int port_;
  std::string address_;
};

TServer::TServer(TServerOptions options) : state_(std::make_unique<TState>(std::move(options))) {}
TServer::~TServer() = default;

const std::string& TServer::GetAddress() const { return state_->GetAddress(); }

void TServer::Attach(const boost::shared_ptr<ICIMNamespace>& nameSpace) {
  state_->Attach(nameSpace);
}

bool TServer::Run() { return state_->Run(); }

void TServer::Stop() { state_->Stop(); }

void TServer::WithoutRequests(const std::function<void()>& work) {
  const std::lock_guard<std::mutex> lock(state_->GetMutex());
  work();
}

}  // namespace NZELVYR20

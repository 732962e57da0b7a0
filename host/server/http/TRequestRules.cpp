#include "TRequestRules.h"

#include <boost/algorithm/string.hpp>
#include <map>
#include <string>
#include <vector>

namespace NZELVYR20 {
namespace {

using TResult = std::optional<THttpRefusal>;

THttpRefusal Refuse(int status, const std::string& header = {}) { return {status, header}; }

/// The name in "name:port" or "[address]:port".
std::string GetName(const std::string& host) {
  if (boost::starts_with(host, "[")) return host.substr(0, host.find(']') + 1);
  return host.substr(0, host.find(':'));
}

bool IsLoopbackName(const std::string& name) {
  return boost::iequals(name, "localhost") || boost::iequals(name, "localhost.") ||
         name == "[::1]" ||
         (boost::starts_with(name, "127.") && boost::all(name, boost::is_any_of("0123456789.")));
}

TResult CheckLine(const THttpHead& head) {
  if (!boost::starts_with(head.GetVersion(), "HTTP/1.")) return Refuse(505);
  const std::string& method = head.GetMethod();
  if (method != "POST" && method != "GET" && method != "HEAD") return Refuse(501);
  const bool isProtocol = head.GetPath() == kProtocolPath;
  if (isProtocol && method != "POST") return Refuse(405, "Allow: POST");
  if (!isProtocol && method == "POST") return Refuse(404);
  return {};
}

TResult CheckHost(const THttpHead& head, bool isLocalOnly) {
  const std::vector<std::string> hosts = head.GetAll("Host");
  const bool isOld = head.GetVersion() == "HTTP/1.0";
  if (hosts.size() != 1 && !(isOld && hosts.empty())) return Refuse(400);
  const std::string host = hosts.empty() ? "localhost" : hosts.front();
  if (isLocalOnly && !IsLoopbackName(GetName(host))) return Refuse(403);
  for (const std::string& origin : head.GetAll("Origin")) {
    if (!boost::iequals(origin, "http://" + host) && !boost::iequals(origin, "https://" + host)) {
      return Refuse(403);
    }
  }
  return {};
}

/// How much of a body follows has to be certain, else what stands in it could pass for a request.
TResult CheckBody(const THttpHead& head, std::size_t bodyBytes) {
  constexpr std::size_t kMostDigits = 18;
  const std::vector<std::string> lengths = head.GetAll("Content-Length");
  const std::vector<std::string> codings = head.GetAll("Transfer-Encoding");
  if (lengths.size() + codings.size() > 1) return Refuse(400);
  if (!codings.empty() && !boost::iequals(codings.front(), "chunked")) return Refuse(501);
  const std::string length = lengths.empty() ? "0" : lengths.front();
  if (length.empty() || !boost::all(length, boost::is_digit())) return Refuse(400);
  if (length.size() > kMostDigits || std::stoull(length) > bodyBytes) return Refuse(413);
  if (head.GetMethod() != "POST") {
    return codings.empty() && std::stoull(length) == 0 ? TResult() : Refuse(400);
  }
  if (lengths.empty() && codings.empty()) return Refuse(411);
  for (const std::string& coding : head.GetAll("Content-Encoding")) {
    if (!boost::iequals(coding, "identity")) return Refuse(415);
  }
  return {};
}

TResult CheckExpectation(const THttpHead& head) {
  for (const std::string& expected : head.GetAll("Expect")) {
    if (!boost::iequals(expected, "100-continue")) return Refuse(417);
  }
  return {};
}

std::string GetReason(int status) {
  static const std::map<int, std::string> reasons = {
      {400, "Bad Request"},        {401, "Unauthorized"},
      {403, "Forbidden"},          {404, "Not Found"},
      {405, "Method Not Allowed"}, {408, "Request Timeout"},
      {411, "Length Required"},    {413, "Payload Too Large"},
      {414, "URI Too Long"},       {415, "Unsupported Media Type"},
      {417, "Expectation Failed"}, {431, "Request Header Fields Too Large"},
      {501, "Not Implemented"},    {505, "HTTP Version Not Supported"}};
  return reasons.at(status);
}

}  // namespace

std::string THttpRefusal::ToString() const {
  return "HTTP/1.1 " + std::to_string(status) + ' ' + GetReason(status) + "\r\n" +
         (header.empty() ? "" : header + "\r\n") + "Content-Length: 0\r\nConnection: close\r\n\r\n";
}

std::optional<THttpRefusal> TRequestRules::Check(const THttpHead& head) const {
  if (TResult refusal = CheckHost(head, isLocalOnly)) return refusal;
  if (admits && !admits(head.Get("Authorization").value_or(""))) {
    return Refuse(401, "WWW-Authenticate: Basic realm=\"vyr\", charset=\"UTF-8\"");
  }
  if (TResult refusal = CheckLine(head)) return refusal;
  if (TResult refusal = CheckBody(head, bodyBytes)) return refusal;
  return CheckExpectation(head);
}

bool IsKept(const THttpHead& head) {
  // Where a body in pieces goes wrong nobody knows where the next request begins.
  return head.GetVersion() != "HTTP/1.0" && !head.HasWord("Connection", "close") &&
         head.GetAll("Transfer-Encoding").empty();
}

std::string WritePlainHead(const THttpHead& head, bool isKept) {
  std::string text = head.GetMethod() + ' ' + head.GetTarget() + " HTTP/1.1\r\n";
  for (const char* name :
       {"Host", "Content-Type", "Content-Length", "Transfer-Encoding", "CIMOperation",
        "CIMProtocolVersion", "CIMMethod", "CIMObject", "CIMBatch"}) {
    // The library decodes what is encoded in headers; who reads them does that for himself.
    if (const auto value = head.Get(name)) {
      text += std::string(name) + ": " + boost::replace_all_copy(*value, "%", "%25") + "\r\n";
    }
  }
  return text + (isKept ? "\r\n" : "Connection: close\r\n\r\n");
}

}  // namespace NZELVYR20

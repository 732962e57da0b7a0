#include <gtest/gtest.h>

#include <boost/algorithm/string.hpp>
#include <chrono>
#include <future>
#include <memory>
#include <optional>
#include <regex>

#include "Cases.h"
#include "TClient.h"
#include "TCommandError.h"
#include "TRootObject.h"
#include "TRunningServer.h"
#include "TScopedSilence.h"

namespace NZELVYR20 {
namespace {

constexpr auto kLast = "GET /last HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n";

/// Lines as HTTP has them, with what stands for long texts replaced by them.
std::string MakeRequest(const std::string& lines) {
  std::string text = boost::replace_all_copy(lines, "\n.", "\n");
  boost::replace_all(text, "\n", "\r\n");
  for (const int count : {1000, 4095, 9000}) {
    boost::replace_all(text, '$' + std::to_string(count), std::string(count, 'x'));
  }
  boost::replace_all(text, "\\r", "\r");
  // What ends in an empty line has one more end than its lines.
  return boost::ends_with(lines, "\n.") ? text + "\r\n" : text;
}

/// A line for each answer: its status, and what else is told by certain headers.
std::string Summarize(std::string text) {
  static const std::regex told(
      "\r\n(?:CIMError|CIMOperation|PGErrorDetail|Allow|WWW-Authenticate): ([^\r]*)");
  static const std::regex length("\r\nContent-Length: ([0-9]+)");
  std::string summary;
  while (boost::starts_with(text, "HTTP/1.1 ")) {
    const std::size_t end = text.find("\r\n\r\n");
    const std::string head = text.substr(0, end);
    summary += head.substr(9, 3);
    for (std::sregex_iterator next(head.begin(), head.end(), told), last; next != last; ++next) {
      summary += ' ' + next->str(1);
    }
    EXPECT_EQ(head.find("Content-Encoding"), std::string::npos);
    summary += '\n';
    std::smatch found;
    const std::size_t size = std::regex_search(head, found, length) ? std::stoul(found[1]) : 0;
    text.erase(0, end + 4 + size);
  }
  return boost::trim_copy(summary + text);
}

TServerOptions SmallOptions() {
  TServerOptions options;
  options.limits.bodyBytes = 1000;
  options.limits.memoryBytes = 1000;
  options.limits.threads = 2;
  return options;
}

TEST(ServerTest, Requests) {
  TRunningServer server(SmallOptions());
  CheckCases("requests.txt", [&](const std::string& given) {
    if (boost::starts_with(given, "# Requests")) return std::string();
    const TClient client(server.GetPort());
    client.Send(MakeRequest(given) + kLast);
    client.End();
    return Summarize(client.ReceiveAll());
  });
}

/// A request for which the repository is needed, on a connection of its own.
std::string Ask(int port) {
  const TClient client(port);
  client.Send(kLast);
  return client.ReceiveAll().substr(0, 12);
}

/// Answers that nobody takes are large, and more than a socket buffers.
TEST(ServerTest, NobodyWaitsForASlowReader) {
  TRunningServer server(SmallOptions());
  const TClient slow(server.GetPort());
  slow.Send(boost::replace_all_copy(std::string(2000, '.'), ".",
                                    "GET /style.css HTTP/1.1\r\nHost: localhost\r\n\r\n"));
  EXPECT_EQ(slow.Receive(12), "HTTP/1.1 200");
  EXPECT_EQ(Ask(server.GetPort()), "HTTP/1.1 404");
  EXPECT_EQ(Ask(server.GetPort()), "HTTP/1.1 404");
}

/// Whoever has the repository keeps requests waiting, and nothing else.
TEST(ServerTest, RequestsQueueForTheRepository) {
  TRunningServer server(SmallOptions());
  std::future<std::string> asked;
  server.Get().WithoutRequests([&] {
    asked = std::async(std::launch::async, [&] { return Ask(server.GetPort()); });
    EXPECT_EQ(asked.wait_for(std::chrono::milliseconds(50)), std::future_status::timeout);
    const TClient refused(server.GetPort());
    refused.Send("PUT / HTTP/1.1\r\nHost: localhost\r\n\r\n");
    EXPECT_EQ(Summarize(refused.ReceiveAll()), "501");
  });
  EXPECT_EQ(asked.get(), "HTTP/1.1 404");
}

TEST(ServerTest, ABodyMayWaitForWordFromTheServer) {
  TRunningServer server(SmallOptions());
  const TClient client(server.GetPort());
  client.Send(
      "POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Length: 4\r\nExpect: "
      "100-continue\r\n\r\n");
  EXPECT_EQ(client.Receive(25), "HTTP/1.1 100 Continue\r\n\r\n");
  client.Send(std::string("<a/>") + kLast);
  EXPECT_EQ(Summarize(client.ReceiveAll()), "400 Content-Type%20is%20not%20XML%20in%20UTF-8\n404");
}

struct TLate {
  const char* what;
  std::string sent;
  std::string answer;
};

TEST(ServerTest, WhatTakesTooLong) {
  TServerOptions options = SmallOptions();
  options.limits.readTime = options.limits.writeTime = options.limits.idleTime =
      options.limits.headTime = std::chrono::milliseconds(100);
  TRunningServer server(options);
  const std::string get = "GET /last HTTP/1.1\r\nHost: localhost\r\n\r\n";
  const std::vector<TLate> rows = {
      {"nothing", "", ""},
      {"half a head", "GET / HT", "408"},
      {"half a body", "POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Length: 9\r\n\r\nx",
       "400"},
      {"nothing after an answer", get, "404"},
      {"half a second request", get + "G", "404\n408"},
  };
  for (const TLate& row : rows) {
    const TClient client(server.GetPort());
    client.Send(row.sent);
    EXPECT_EQ(Summarize(client.ReceiveAll()), row.answer) << row.what;
  }
  options.limits.readTime = std::chrono::hours(1);
  const TRunningServer patient(options);
  for (const char* sent : {"", "GET / HTTP/1.1\r\nHost"}) {
    const TClient client(patient.GetPort());
    client.Send(sent);
    EXPECT_EQ(Summarize(client.ReceiveAll()), *sent == '\0' ? "" : "408");
  }
}

/// With both threads taken by clients who have time, the third is served after an answer at most.
TEST(ServerTest, ConnectionsGiveWay) {
  TRunningServer server(SmallOptions());
  const std::string get = "GET /last HTTP/1.1\r\nHost: localhost\r\n\r\n";
  const TClient first(server.GetPort());
  const TClient second(server.GetPort());
  for (const TClient* client : {&first, &second}) {
    client->Send(get);
    EXPECT_EQ(client->Receive(12), "HTTP/1.1 404");
  }
  auto third = std::async(std::launch::async, [&] { return Ask(server.GetPort()); });
  while (third.wait_for(std::chrono::milliseconds(10)) != std::future_status::ready) {
    first.Send(get);
  }
  EXPECT_EQ(third.get(), "HTTP/1.1 404");
}

/// However many do nothing, or take nothing, the end comes at once.
TEST(ServerTest, EndsWithClientsThere) {
  std::vector<std::unique_ptr<TClient>> clients;
  std::optional<TRunningServer> server(SmallOptions());
  for (int count = 0; count < 5; ++count) {
    clients.push_back(std::make_unique<TClient>(server->GetPort()));
    clients.back()->Send("GET");
  }
  const auto begin = std::chrono::steady_clock::now();
  server.reset();
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
}

std::string WhyNot(TServerOptions options) {
  options.port = 0;
  try {
    const TServer server(std::move(options));
  } catch (const TCommandError& error) {
    return error.what();
  }
  return "";
}

TEST(ServerTest, WhereItServes) {
  for (const char* address : {"127.0.0.1", "127.1.2.3", "localhost"}) {
    TServerOptions options;
    options.address = address;
    EXPECT_EQ(WhyNot(options), "") << address;
  }
  for (const char* address : {"0.0.0.0", "::", "192.0.2.1", "example.invalid", ""}) {
    TServerOptions options;
    options.address = address;
    EXPECT_NE(WhyNot(options).find("others could connect"), std::string::npos) << address;
  }
  TServerOptions uncertified;
  uncertified.key = "key";
  EXPECT_NE(WhyNot(uncertified).find("TLS needs both"), std::string::npos);
  TRunningServer server(SmallOptions());
  TServerOptions taken;
  taken.port = server.GetPort();
  EXPECT_THROW(TServer{taken}, TCommandError);
}

/// A collection and a request silence the logger on threads of their own.
TEST(ServerTest, ScopesOfLoggersMayOverlap) {
  std::string heard;
  const TScopedLogger listening(
      [&heard](ICoreLogger&, int, const std::string& message) { heard += message; });
  const auto logger = TRootObject::GetCoreLogger();
  auto first = std::make_unique<TScopedSilence>();
  auto second = std::make_unique<TScopedSilence>();
  first.reset();
  TRootObject::GetCoreLogger()->Log(0, "unheard");
  second.reset();
  TRootObject::GetCoreLogger()->Log(0, "heard");
  EXPECT_EQ(heard, "heard");
  EXPECT_EQ(TRootObject::GetCoreLogger(), logger);
}

}  // namespace
}  // namespace NZELVYR20

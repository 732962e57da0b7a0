#include <gtest/gtest.h>
#include <httplib.h>
#include <sys/stat.h>

#include <cstdlib>

#include "TCommandError.h"
#include "TPasswords.h"
#include "TRunningServer.h"
#include "TSampleTree.h"
#include "TSpool.h"

namespace NZELVYR20 {
namespace {

/// "secret", with a salt.
const std::string kHash =
    "$6$saltsalt$TVLlQcbpFVof5W3Yz4DTP6gRstiNuHwwTt6GLc1E5n0U0aDehy0S5knV8wiOQSpT0Y77vwPZN.Pq."
    "H91p5hVO1";

/// Files that only their owner reads.
class TPrivateFiles {
 public:
  std::string Write(const std::string& name, const std::string& text, mode_t mode = 0600) const {
    tree_.Write(name, text);
    chmod(GetPath(name).c_str(), mode);
    return GetPath(name);
  }
  std::string GetPath(const std::string& name) const { return tree_.GetRoot() + name; }

 private:
  TSampleTree tree_;
};

struct TPasswordRow {
  const char* given;
  bool isAdmitted;
};

TEST(AccessTest, Passwords) {
  const TPrivateFiles files;
  const TPasswords passwords(files.Write("/users", "# who\n\nann:" + kHash + "\nbob:" + kHash));
  const TPasswordRow rows[] = {
      {"Basic YW5uOnNlY3JldA==", true},  // ann:secret
      {"basic YW5uOnNlY3JldA==", true},
      {"Basic Ym9iOnNlY3JldA==", true},   // bob:secret
      {"Basic YW5uOnNlY3JlVA==", false},  // ann:secreT
      {"Basic ZXZlOnNlY3JldA==", false},  // eve:secret
      {"Basic YW5uOg==", false},          // ann:
      {"Basic YW5uOnNlY3JldAB4", false},  // ann:secret, a null character, x
      {"Basic YW5uOnNlY3JldA", false},
      {"Basic YW5u", false},
      {"Basic ", false},
      {"Bearer YW5uOnNlY3JldA==", false},
      {"", false},
  };
  for (const TPasswordRow& row : rows) {
    EXPECT_EQ(passwords.Admits(row.given), row.isAdmitted) << row.given;
  }
  EXPECT_NO_THROW(TPasswords(files.Write("/ours", "ann:" + kHash, 0640)));
  for (const mode_t mode : {0604, 0602, 0660}) {
    EXPECT_THROW(TPasswords(files.Write("/open", "ann:" + kHash, mode)), TCommandError) << mode;
  }
  for (const std::string& text : {std::string(), std::string("ann"), ":" + kHash,
                                  std::string("ann:secret"), std::string("ann:$1$x$y")}) {
    EXPECT_THROW(TPasswords(files.Write("/bad", text)), TCommandError) << text;
  }
}

TEST(AccessTest, PasswordsOverTls) {
  const TPrivateFiles files;
  const std::string command =
      "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -subj /CN=vyr "
      "-keyout " +
      files.Write("/key", "") + " -out " + files.GetPath("/certificate") + " 2>&1";
  ASSERT_EQ(std::system((command + " >" + files.GetPath("/log")).c_str()), 0);
  TServerOptions options;
  options.address = "0.0.0.0";
  options.certificate = files.GetPath("/certificate");
  options.key = files.GetPath("/key");
  options.passwordFile = files.Write("/users", "ann:" + kHash);
  TRunningServer server(options);
  httplib::SSLClient client("127.0.0.1", server.GetPort());
  client.enable_server_certificate_verification(false);
  client.set_keep_alive(true);
  const auto refused = client.Get("/");
  ASSERT_TRUE(refused) << httplib::to_string(refused.error());
  EXPECT_EQ(refused->status, 401);
  EXPECT_EQ(refused->get_header_value("WWW-Authenticate").substr(0, 11), "Basic realm");
  client.set_basic_auth("ann", "secret");
  // Whoever has a password asks by whatever name leads here.
  for (const char* host : {"localhost", "box.example"}) {
    const auto answered = client.Get("/style.css", {{"Host", host}});
    ASSERT_TRUE(answered);
    EXPECT_EQ(answered->status, 200);
  }
  httplib::Client plain("127.0.0.1", server.GetPort());
  EXPECT_FALSE(plain.Get("/"));
  chmod(options.key.c_str(), 0644);
  EXPECT_THROW(TRunningServer{options}, TCommandError);
  chmod(options.key.c_str(), 0600);
  options.passwordFile.clear();
  EXPECT_THROW(TRunningServer{options}, TCommandError);
}

TEST(AccessTest, Spool) {
  TServerLimits limits;
  limits.memoryBytes = 10;
  limits.answerBytes = 100;
  limits.spoolBytes = 150;
  std::atomic<std::uint64_t> total{0};
  for (const std::size_t size : {0, 10, 11, 50}) {
    TSpool spool(limits, total);
    spool.Write("dropped");
    spool.Restart();
    for (std::size_t at = 0; at < size; ++at) spool.Write(std::string(1, static_cast<char>(at)));
    EXPECT_EQ(total, size);
    for (std::size_t at = 0; at < size; ++at) {
      EXPECT_EQ(spool.Read(at, 2)[0], static_cast<char>(at));
    }
    EXPECT_TRUE(spool.Read(size, 1).empty());
  }
  TSpool one(limits, total);
  EXPECT_THROW(one.Write(std::string(101, 'x')), TAnswerTooLarge);
  one.Restart();
  one.Write(std::string(100, 'x'));
  {
    TSpool other(limits, total);
    EXPECT_THROW(other.Write(std::string(51, 'x')), TAnswerTooLarge);
  }
  EXPECT_EQ(total, 100);
}

}  // namespace
}  // namespace NZELVYR20

#include "TRootObject.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"

namespace NZELVYR20 {
namespace {

class TNotingLogger : public ICoreLogger {
 public:
  ~TNotingLogger() override { TRootObject::GetCoreLogger()->Log(9, "logger gone"); }
  void Log(int level, const std::string& message) override {
    notes += std::to_string(level) + message + ';';
  }
  std::string notes;
};

class TFakeProvider : public INamespaceProvider {
 public:
  explicit TFakeProvider(std::string name) : name_(std::move(name)) {}
  const std::string& GetName(TCIMContext) const override { return name_; }
  boost::shared_ptr<ICIMNamespace> AllocateNamespace(TCIMContext, bool) const override {
    return {};
  }
  int GetType(TCIMContext) const override { return 2; }
  bool IsIndicationsSupported(TCIMContext) const override { return false; }

 private:
  std::string name_;
};

/// Catches what goes to standard error in its lifetime.
class TCaughtErrors {
 public:
  TCaughtErrors() : original_(std::cerr.rdbuf(text_.rdbuf())) {}
  ~TCaughtErrors() { std::cerr.rdbuf(original_); }
  std::string GetText() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* original_;
};

TEST(TRootObject, OwnLoggerWritesLinesWithinTheThreshold) {
  const TCaughtErrors errors;
  const auto log = [](int level, const char* text) {
    TRootObject::GetCoreLogger()->Log(level, text);
  };
  log(0, "grave");
  log(3, "two\r\nlines");
  log(4, "detail");
  TRootObject::SetLogThreshold(4);
  log(4, "wanted detail");
  TRootObject::SetLogThreshold(-1);
  log(0, "unheard");
  log(-5, "unheard, too");
  TRootObject::SetLogThreshold(3);
  EXPECT_EQ(errors.GetText(), "vyr[0] grave\nvyr[3] two  lines\nvyr[4] wanted detail\n");
}

TEST(TRootObject, OwnLoggerNeverThrows) {
  const TCaughtErrors errors;
  struct TFullBuffer : std::streambuf {
  } full;
  std::cerr.rdbuf(&full);
  std::cerr.exceptions(std::ios::badbit);
  EXPECT_NO_THROW(TRootObject::GetCoreLogger()->Log(0, "lost"));
  EXPECT_TRUE(std::cerr.bad());
  std::cerr.exceptions(std::ios::goodbit);
}

TEST(TRootObject, SwapsTheLogger) {
  const TCaughtErrors errors;
  auto logger = boost::make_shared<TNotingLogger>();
  TRootObject::SetCoreLogger(logger);
  TRootObject::GetCoreLogger()->Log(7, "noted");
  EXPECT_EQ(logger->notes, "7noted;");
  logger.reset();
  TRootObject::SetLogThreshold(9);
  TRootObject::SetCoreLogger({});  // the noting logger logs while it is let go of
  TRootObject::SetLogThreshold(3);
  EXPECT_EQ(errors.GetText(), "vyr[9] logger gone\n");
}

TEST(TRootObject, ManagerFindsAndReplacesProviders) {
  const auto manager = TRootObject::GetNamespaceProviderManager();
  const auto first = boost::make_shared<TFakeProvider>("test-b");
  const auto second = boost::make_shared<TFakeProvider>("test-b");
  manager->RegisterNamespaceProvider(first);
  manager->RegisterNamespaceProvider(boost::make_shared<TFakeProvider>("test-a"));
  EXPECT_EQ(manager->FindNamespaceProvider("test-b"), first);
  EXPECT_EQ(manager->FindNamespaceProvider("TEST-B"), nullptr);
  manager->RegisterNamespaceProvider(second);
  EXPECT_EQ(manager->FindNamespaceProvider("test-b"), second);
  EXPECT_EQ(first.use_count(), 1);
  EXPECT_EQ(manager->GetNamespaceProviderNames(), (std::vector<std::string>{"test-a", "test-b"}));
  EXPECT_THROW(manager->RegisterNamespaceProvider({}), std::invalid_argument);
}

}  // namespace
}  // namespace NZELVYR20

#include "TRootObject.h"

#include <algorithm>
#include <iostream>
#include <sstream>

#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "Paths.h"

namespace NZELVYR20 {

static void Log(int level, const char* text) { TRootObject::GetCoreLogger()->Log(level, text); }

struct TNotingLogger : ICoreLogger {
  ~TNotingLogger() override { NZELVYR20::Log(9, notes.c_str()); }
  void Log(int level, TText message) override { notes += std::to_string(level) + message; }
  std::string notes = "noted: ";
};

struct TFakeProvider : INamespaceProvider {
  explicit TFakeProvider(std::string givenName) : name(std::move(givenName)) {}
  TText GetName(TCIMContext) const override { return name; }
  boost::shared_ptr<ICIMNamespace> AllocateNamespace(TCIMContext, bool) const override {
    return {};
  }
  int GetType(TCIMContext) const override { return 0; }
  bool IsIndicationsSupported(TCIMContext) const override { return false; }
  std::string name;
};

struct TRootObjectTest : testing::Test {
  ~TRootObjectTest() override { std::cerr.rdbuf(original); }

  std::ostringstream errors;
  std::streambuf* original = std::cerr.rdbuf(errors.rdbuf());
};

TEST_F(TRootObjectTest, OwnLoggerWritesLinesWithinTheThresholdAndNeverThrows) {
  Log(3, "two\r\nlines");
  Log(4, "detail");
  TRootObject::SetLogThreshold(4);
  Log(4, "wanted detail");
  TRootObject::SetLogThreshold(-1);
  Log(-5, "unheard");
  TRootObject::SetLogThreshold(3);
  EXPECT_EQ(errors.str(), "vyr[3] two  lines\nvyr[4] wanted detail\n");

  std::stringbuf unwritable(std::ios::in);
  std::cerr.rdbuf(&unwritable);
  std::cerr.exceptions(std::ios::badbit);
  EXPECT_NO_THROW(Log(0, "lost"));
  EXPECT_TRUE(std::cerr.bad());
  std::cerr.exceptions(std::ios::goodbit);
}

TEST_F(TRootObjectTest, SwapsTheLoggerWhichMayStillLogWhileItIsLetGoOf) {
  TRootObject::SetCoreLogger(boost::make_shared<TNotingLogger>());
  Log(7, "text");
  TRootObject::SetLogThreshold(9);
  TRootObject::SetCoreLogger({});
  TRootObject::SetLogThreshold(3);
  EXPECT_EQ(errors.str(), "vyr[9] noted: 7text\n");
}

TEST_F(TRootObjectTest, ManagerFindsAndReplacesProviders) {
  const auto manager = TRootObject::GetNamespaceProviderManager();
  const auto first = boost::make_shared<TFakeProvider>("test-b");
  const auto second = boost::make_shared<TFakeProvider>("test-b");
  for (const auto& provider : {first, boost::make_shared<TFakeProvider>("test-a"), second}) {
    manager->RegisterNamespaceProvider(provider);
    EXPECT_EQ(manager->FindNamespaceProvider(provider->name), provider);
  }
  EXPECT_EQ(first.use_count(), 1);
  EXPECT_EQ(manager->FindNamespaceProvider("TEST-B"), nullptr);
  std::vector<std::string> names = manager->GetNamespaceProviderNames();
  names.erase(std::remove(names.begin(), names.end(), "inmem"), names.end());
  EXPECT_EQ(names, (std::vector<std::string>{"test-a", "test-b"}));
  EXPECT_THROW(manager->RegisterNamespaceProvider({}), std::invalid_argument);
}

}  // namespace NZELVYR20

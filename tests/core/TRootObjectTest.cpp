#include "TRootObject.h"

#include <iostream>
#include <sstream>

#include "ICoreLogger.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "Paths.h"

namespace NZELVYR20 {

static void Log(int level, const char* text) { TRootObject::GetCoreLogger()->Log(level, text); }

/// Logs while it is let go of.
struct TNotingLogger : ICoreLogger {
  ~TNotingLogger() override { NZELVYR20::Log(9, notes.c_str()); }
  void Log(int level, TText message) override { notes += std::to_string(level) + message; }
  std::string notes = "noted: ";
};

TEST(TRootObject, LogsWithinTheThresholdAndNeverThrows) {
  std::ostringstream errors;
  std::stringbuf unwritable(std::ios::in);
  std::streambuf* const original = std::cerr.rdbuf(errors.rdbuf());
  Log(3, "two\r\nlines");
  Log(4, "detail");
  TRootObject::SetCoreLogger(boost::make_shared<TNotingLogger>());
  Log(7, "text");
  TRootObject::SetLogThreshold(9);
  TRootObject::SetCoreLogger({});
  TRootObject::SetLogThreshold(-1);
  Log(-5, "unheard");
  TRootObject::SetLogThreshold(3);
  std::cerr.rdbuf(&unwritable);
  std::cerr.exceptions(std::ios::badbit);
  EXPECT_NO_THROW(Log(0, "lost"));
  std::cerr.exceptions(std::ios::goodbit);
  std::cerr.rdbuf(original);
  EXPECT_EQ(errors.str(), "vyr[3] two  lines\nvyr[9] noted: 7text\n");
}

struct TFakeProvider : INamespaceProvider {
  explicit TFakeProvider(TText name) : name_(name) {}
  TText GetName(TCIMContext) const override { return name_; }
  TSpace AllocateNamespace(TCIMContext, bool) const override { return {}; }
  int GetType(TCIMContext) const override { return 0; }
  bool IsIndicationsSupported(TCIMContext) const override { return false; }
  const std::string name_;
};

TEST(TRootObject, ManagerFindsAndReplacesProviders) {
  const auto manager = TRootObject::GetNamespaceProviderManager();
  for (const char* const name : {"b", "a", "b"}) {
    const auto provider = boost::make_shared<TFakeProvider>(name);
    manager->RegisterNamespaceProvider(provider);
    EXPECT_EQ(manager->FindNamespaceProvider(name), provider);
  }
  EXPECT_EQ(manager->FindNamespaceProvider("B"), nullptr);
  std::vector<std::string> names = manager->GetNamespaceProviderNames();
  names.resize(2);
  EXPECT_EQ(names, (std::vector<std::string>{"a", "b"}));
  EXPECT_THROW(manager->RegisterNamespaceProvider({}), std::invalid_argument);
}

}  // namespace NZELVYR20

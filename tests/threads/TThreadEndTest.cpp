#include <gtest/gtest.h>
#include <pthread.h>

#include <boost/make_shared.hpp>
#include <functional>

#include "ICIMMethodDecl.h"
#include "ICoreLogger.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

using TWork = std::function<void()>;

/// A callback for every enumeration.
struct TVisit {
  TWork work;

  template <class TElement>
  bool operator()(const TElement&) const {
    work();
    return true;
  }
};

struct TLoggerOf : ICoreLogger {
  explicit TLoggerOf(TWork onMessage) : work(std::move(onMessage)) {}
  void Log(int, const std::string&) override { work(); }
  TWork work;
};

void* Run(void* work) {
  (*static_cast<const TWork*>(work))();
  return nullptr;
}

/// Whether a thread of its own ends while it does the work, and not behind it.
bool EndsThread(TWork work) {
  pthread_t thread{};
  void* result = nullptr;
  return pthread_create(&thread, nullptr, Run, &work) == 0 && pthread_join(thread, &result) == 0 &&
         result == PTHREAD_CANCELED;
}

void Cancel() {
  pthread_cancel(pthread_self());
  pthread_testcancel();
}

struct TWalk {
  const char* name;
  std::function<void(const TVisit& visit)> walk;
};

TEST(TThreadEndTest, AThreadMayEndInACallbackAndTheNamespaceServesTheNext) {
  const auto space = AllocatePluginNamespace();
  const auto port = AddClass(space, "Port", "");
  const auto fast = space->AllocateClass("FastPort", port, {});
  fast->AddToNamespace({});
  const auto link = AddClass(space, "Link", TCIMValue::NullReference(port));
  const auto instance = AddInstance(port, "a");
  AddInstance(fast, "b");
  AddInstance(link, instance->GetReference({}));
  port->AllocateMethodDecl("Reset", TCIMValue::TCIMType::kUInt32, {})->AddToClass({});
  Qualify(space, *port, "Version");
  const auto root = space->GetClass("", {});
  const TWalk walks[] = {
      {"qualifier declarations", [&](auto& visit) { space->EnumerateQualifierDecls(visit, {}); }},
      {"root classes", [&](auto& visit) { space->EnumerateRootClasses(visit, {}); }},
      {"subclasses", [&](auto& visit) { root->EnumerateSubClasses(visit, true, {}); }},
      {"instances", [&](auto& visit) { port->EnumerateInstances(visit, false, {}); }},
      {"all instances", [&](auto& visit) { root->EnumerateInstances(visit, true, {}); }},
      {"referrers",
       [&](auto& visit) { instance->EnumerateAssociationInstances(visit, "", "", {}); }},
      {"properties", [&](auto& visit) { port->EnumeratePropertyDecls(visit, {}); }},
      {"methods", [&](auto& visit) { port->EnumerateMethodDecls(visit, {}); }},
      {"qualifiers", [&](auto& visit) { port->EnumerateQualifiers(visit, {}); }},
      {"a property's qualifiers",
       [&](auto& visit) { port->GetPropertyDecl("Id", {})->EnumerateQualifiers(visit, {}); }},
      {"a logged look-up",
       [&](auto& visit) {
         TRootObject::SetCoreLogger(boost::make_shared<TLoggerOf>([visit] { visit(0); }));
         space->AllocateClass("no name", {}, {});
       }},
  };
  for (const TWalk& one : walks) {
    SCOPED_TRACE(one.name);
    EXPECT_TRUE(EndsThread([&] { one.walk({[] { pthread_exit(PTHREAD_CANCELED); }}); }));
    EXPECT_TRUE(EndsThread([&] { one.walk({Cancel}); }));
    int visited = 0;
    EXPECT_FALSE(EndsThread([&] { one.walk({[&] { ++visited; }}); }));
    EXPECT_GT(visited, 0);
  }
  TRootObject::SetCoreLogger({});
  space->ClearInstances();  // no walk that never came to its end is told
  AddInstance(AddClass(space, "Disk", ""), "c");
  EXPECT_EQ(space->GetQualifierDecl("version", {})->GetName({}), "Version");
}

}  // namespace
}  // namespace NZELVYR20

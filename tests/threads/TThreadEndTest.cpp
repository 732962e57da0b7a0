#include <gtest/gtest.h>
#include <pthread.h>

#include <boost/make_shared.hpp>

#include "ICoreLogger.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TEveryWalk.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

struct TVisitingLogger : ICoreLogger {
  explicit TVisitingLogger(TVisit given) : visit(std::move(given)) {}
  void Log(int, const std::string&) override { visit(0); }
  TVisit visit;
};

void* Run(void* work) {
  (*static_cast<const std::function<void()>*>(work))();
  return nullptr;
}

/// Whether a thread of its own ends while it does the work, and not after it.
bool EndsThread(std::function<void()> work) {
  pthread_t thread{};
  void* result = nullptr;
  return pthread_create(&thread, nullptr, Run, &work) == 0 && pthread_join(thread, &result) == 0 &&
         result == PTHREAD_CANCELED;
}

bool Exit() { pthread_exit(PTHREAD_CANCELED); }

bool Cancel() {
  pthread_cancel(pthread_self());
  pthread_testcancel();
  return true;
}

TEST(TThreadEndTest, AThreadMayEndInACallbackAndTheNamespaceServesTheNext) {
  TEveryWalk all(AllocatePluginNamespace());
  auto walks = all.GetWalks();
  walks.emplace_back("a logged look-up", [&](const TVisit& visit) {
    TRootObject::SetCoreLogger(boost::make_shared<TVisitingLogger>(visit));
    all.space->AllocateClass("no name", {}, {});
  });
  for (const auto& [name, walk] : walks) {
    SCOPED_TRACE(name);
    for (const auto end : {Exit, Cancel}) EXPECT_TRUE(EndsThread([&, &go = walk] { go({end}); }));
    int visited = 0;
    EXPECT_FALSE(EndsThread([&, &go = walk] { go({[&] { return ++visited > 0; }}); }));
    EXPECT_GT(visited, 0);
  }
  TRootObject::SetCoreLogger({});
  all.space->ClearInstances();  // no walk that never came to its end is told
  AddInstance(AddClass(all.space, "Disk", ""), "c");
  EXPECT_EQ(all.space->GetQualifierDecl("key", {})->GetName({}), "Key");
}

}  // namespace
}  // namespace NZELVYR20

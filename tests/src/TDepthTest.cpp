#include <boost/weak_ptr.hpp>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

class TDepthTest : public TRedefinitionTest {};

/// Neither a deep walk nor the end of a long chain may follow the chain with the stack.
TEST_F(TDepthTest, AChainOfAHundredThousandClasses) {
  constexpr std::size_t kDepth = 100000;
  auto last = DefineClass("Top");
  for (std::size_t i = 1; i < kDepth; ++i) {
    last = NewClass("C" + std::to_string(i), last);
    last->AddToNamespace({});
  }
  PutInstance(last, "deepest");
  const auto top = space->GetClass("Top", {});
  const auto below = NamesOf([&](const TNamer& note) { top->EnumerateSubClasses(note, true, {}); });
  EXPECT_EQ(below.size(), kDepth - 1);
  EXPECT_EQ(below.back(), last->GetName({}));
  EXPECT_EQ(NamesOf([&](const TNamer& note) {
              space->GetClass("", {})->EnumerateInstances(note, true, {});
            }),
            TNames{PathOf(*NewInstance(last, {{"Id", "deepest"}}))});
  EXPECT_TRUE(last->IsSubclassOf(top, {}));
}

TEST_F(TDepthTest, AChainThatOnlyItsHeadHolds) {
  TClass head;
  boost::weak_ptr<ICIMClass> last;
  for (int i = 0; i < 100000; ++i) {
    const auto next = NewClass("Link");
    Qualify(*next, "Association");
    DeclareProperty(next, "End", TCIMValue::NullReference(head));
    head = next;
    if (i == 0) last = head;
  }
  EXPECT_FALSE(last.expired());
  head.reset();
  EXPECT_TRUE(last.expired());
}

/// A class that replaces its own ancestor takes over that one's subclasses and so stands below
/// itself.
TEST_F(TDepthTest, AClassBelowItselfIsEnteredOnce) {
  const auto old = NewClass("Port");
  DeclareProperty(old, "Id", TCIMValue("x"), {"Key"});
  const auto middle = NewClass("Middle", old);
  const auto port = NewClass("Port", middle);
  for (const auto& cimClass : {old, middle, port}) cimClass->AddToNamespace({});
  EXPECT_EQ(NamesOf([&](const TNamer& note) { port->EnumerateSubClasses(note, true, {}); }),
            (TNames{"Middle", "Port"}));
}

}  // namespace
}  // namespace NZELVYR20

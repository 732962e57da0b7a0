#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TDepthTest = TRedefinitionTest;

/// Neither a deep walk nor the end of a long chain may follow the chain with the stack.
TEST_F(TDepthTest, AChainOfAHundredThousandClasses) {
  constexpr std::size_t kDepth = 100000;
  const auto top = DefineClass("Top");
  auto last = top;
  for (std::size_t i = 1; i < kDepth; ++i) {
    last = NewClass("C" + std::to_string(i), last);
    last->AddToNamespace({});
  }
  AddInstance(last, "deepest");
  const auto below = NamesOf([&](const TNamer& note) { top->EnumerateSubClasses(note, true, {}); });
  EXPECT_EQ(below.size(), kDepth - 1);
  EXPECT_EQ(below.back(), last->GetName({}));
  EXPECT_EQ(NamesOf([&](const TNamer& note) { top->EnumerateInstances(note, true, {}); }),
            TNames{last->GetName({}) + ".id=\"deepest\""});
  EXPECT_TRUE(last->IsSubclassOf(top, {}));
}

TEST_F(TDepthTest, AChainThatOnlyItsHeadHolds) {
  const boost::weak_ptr<ICIMClass> last = [this] {
    TClass head = NewClass("Link");
    boost::weak_ptr<ICIMClass> first = head;
    for (int i = 0; i < 100000; ++i) {
      head = MakeClass(space, "Link", TCIMValue::NullReference(head));
    }
    EXPECT_FALSE(first.expired());
    return first;
  }();
  EXPECT_TRUE(last.expired());
}

/// Neither adding, replacing nor removing a class may look through its siblings.
TEST_F(TDepthTest, AHundredThousandSiblings) {
  const auto replaced = MakeClass(space, "Again", "x");
  const auto replacement = MakeClass(space, "Again", "x");
  replaced->AddToNamespace({});
  std::vector<TClass> siblings(100000);
  int number = 0;
  for (TClass& sibling : siblings) sibling = DefineClass("C" + std::to_string(number++));
  replacement->AddToNamespace({});
  siblings.push_back(replacement);
  for (; siblings.size() > 1; siblings.pop_back()) siblings.back()->RemoveFromNamespace({});
  EXPECT_EQ(NamesOf([&](const TNamer& note) { space->EnumerateRootClasses(note, {}); }),
            TNames{"C0"});
}

/// A class that replaces its own ancestor takes over that one's subclasses and so stands below
/// itself.
TEST_F(TDepthTest, AClassBelowItselfIsEnteredOnce) {
  const auto old = MakeClass(space, "Port", "x");
  const auto middle = NewClass("Middle", old);
  const auto port = NewClass("Port", middle);
  for (const auto& cimClass : {old, middle, port}) cimClass->AddToNamespace({});
  EXPECT_EQ(NamesOf([&](const TNamer& note) { port->EnumerateSubClasses(note, true, {}); }),
            (TNames{"Middle", "Port"}));
}

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "ICIMProperty.h"
#include "PluginNamespace.h"
#include "SmallSchema.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

using TSpace = boost::shared_ptr<ICIMNamespace>;
using TClass = boost::shared_ptr<ICIMClass>;

constexpr unsigned kDeep = 10000;
constexpr unsigned kMany = 100000;
constexpr std::size_t kMegabyte = 1U << 20U;

std::string Numbered(const char* name, unsigned number) { return name + std::to_string(number); }

/// How many times the enumeration calls back.
template <class TElement, class TEnumerate>
unsigned Count(TEnumerate enumerate) {
  unsigned count = 0;
  enumerate([&count](const boost::shared_ptr<TElement>&) {
    ++count;
    return true;
  });
  return count;
}

/// A chain of subclasses below `top`; returns the lowest.
TClass AddChain(const TSpace& space, const TClass& top, unsigned length) {
  TClass lowest = top;
  for (unsigned level = 0; level < length; ++level) {
    lowest = space->AllocateClass(Numbered("Level", level), lowest, {});
    lowest->AddToNamespace({});
  }
  return lowest;
}

TEST(TSizeTest, AChainOfTenThousandSubclassesNeedsNoStack) {
  auto space = AllocatePluginNamespace();
  const TClass top = AddClass(space, "Top", "");
  TClass lowest = AddChain(space, top, kDeep);
  const auto instance = AddInstance(lowest, "a");

  EXPECT_TRUE(lowest->IsSubclassOf(top, {}));
  const auto classes = [&](const auto& note) { top->EnumerateSubClasses(note, true, {}); };
  EXPECT_EQ(Count<ICIMClass>(classes), kDeep);
  const auto instances = [&](const auto& note) { top->EnumerateInstances(note, true, {}); };
  EXPECT_EQ(Count<ICIMInstance>(instances), 1U);
  EXPECT_EQ(instance->GetReference({}).GetCIMElement(false), instance);
  const auto link = AddClass(space, "Link", TCIMValue::NullReference(top));
  AddInstance(link, instance->GetReference({}));
  const auto links = [&](const auto& note) {
    instance->EnumerateAssociationInstances(note, "", "", {});
  };
  EXPECT_EQ(Count<ICIMInstance>(links), 1U);
  // Whatever goes last takes the others along: the namespace, then a class that outlived it.
  space.reset();
  EXPECT_EQ(lowest->GetNamespace({}), nullptr);
  lowest.reset();
}

TEST(TSizeTest, AHundredThousandClassesSideBySide) {
  const auto space = AllocatePluginNamespace();
  const TClass top = AddClass(space, "Top", "");
  for (unsigned number = 0; number < kMany; ++number) {
    space->AllocateClass(Numbered("Class", number), top, {})->AddToNamespace({});
  }
  EXPECT_EQ(space->GetClass("CLASS99999", {})->GetSuperClass({}), top);
  const auto classes = [&](const auto& note) { top->EnumerateSubClasses(note, false, {}); };
  EXPECT_EQ(Count<ICIMClass>(classes), kMany);
}

TEST(TSizeTest, NamesAndTextsOfAMegabyte) {
  const auto space = AllocatePluginNamespace();
  const std::string name(kMegabyte, 'N');
  const std::string text(kMegabyte, '"');
  const TClass cimClass = MakeClass(space, name, "");
  cimClass->AllocatePropertyDecl(name, text, {})->AddToClass({});
  cimClass->AddToNamespace({});
  const auto instance = AddInstance(cimClass, text);

  EXPECT_EQ(space->GetClass(std::string(kMegabyte, 'n'), {}), cimClass);
  EXPECT_EQ(instance->GetProperty(name, {})->ToString(), text);
  const std::string path = instance->GetReference({}).ToString();
  EXPECT_EQ(path.size(), 3 * kMegabyte + std::string(".Id=\"\"").size());
  EXPECT_EQ(space->GetInstance(TCIMReference::Parse(path, space), {}), instance);
}

TEST(TSizeTest, APathInAPathInAPath) {
  const auto space = AllocatePluginNamespace();
  const auto leaf = AddInstance(AddClass(space, "Leaf", ""), "a");
  const auto last = AddNestedInstances(space, leaf, 5);
  const std::string path = last->GetReference({}).ToString();
  EXPECT_EQ(TCIMReference::Parse(path, space).GetCIMElement(false), last);

  const auto other = AllocatePluginNamespace();
  const auto otherLeaf = AddInstance(AddClass(other, "Leaf", ""), "a");
  EXPECT_THROW(AddNestedInstances(other, otherLeaf, 30), std::length_error);
}

}  // namespace
}  // namespace NZELVYR20

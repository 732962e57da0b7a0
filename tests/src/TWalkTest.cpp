#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TEveryWalk.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TWalkTest = TRepositoryTest;

TEST_F(TWalkTest, MayDropTheLastReferenceToTheNamespace) {
  const std::size_t count = TEveryWalk(NewNamespace(true)).GetWalks().size();
  for (std::size_t number = 0; number < count; ++number) {
    TEveryWalk all(NewNamespace(true));
    const auto [name, walk] = all.GetWalks()[number];
    SCOPED_TRACE(name);
    int whole = 0;
    walk({[&] { return ++whole > 0; }});
    EXPECT_GT(whole, 2);
    const auto watched = all.Watch();
    int visited = 0;
    walk({[&] { return all.Drop(), ++visited > 0; }});
    EXPECT_TRUE(visited == whole || visited == 1) << visited;
    for (const auto& element : watched) EXPECT_TRUE(element.expired());
  }
}

/// The other enumerations are those of the random operations.
TEST_F(TWalkTest, OfParametersAndTheirQualifiersGoesOnAndPassesFailures) {
  const auto port = NewClass("Port");
  for (const bool isOfMethod : {true, false}) {
    const auto method = port->AllocateMethodDecl("Reset", TType::kUInt32, {});
    const auto parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    const auto add = [&](const char* name) {
      method->AllocateParameterDecl(name, TType::kBoolean, {})->AddToMethod({});
      Qualify(*parameter, name);
    };
    const auto walk = [&](const TNamer& note) {
      TCIMParameterDeclCallback callback = note;
      if (isOfMethod) return method->EnumerateParameterDecls(callback, {});
      parameter->EnumerateQualifiers(note, {});
    };
    for (const char* name : {"B", "D", "F"}) add(name);
    TNames visited;
    walk({[&](const std::string& name) {
      if (visited.empty()) add("A"), add("C"), add("G");
      visited.push_back(name);
      return false;
    }});
    EXPECT_EQ(visited, (TNames{"B", "D", "F"}));
    EXPECT_EQ(NamesOf(walk), (TNames{"A", "B", "C", "D", "F", "G"}));
    EXPECT_THROW(walk({[](const std::string&) -> bool { throw 7; }}), int);
  }
}

}  // namespace
}  // namespace NZELVYR20

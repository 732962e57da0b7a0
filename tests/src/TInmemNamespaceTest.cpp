#include "TInmemNamespace.h"

#include "INamespaceProviderManager.h"
#include "TCIMReference.h"
#include "TInmemNamespaceProvider.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TInmemNamespaceTest = TRepositoryTest;
using TInmemNamespaceRedefinitionTest = TRedefinitionTest;

TEST_F(TInmemNamespaceTest, ComesFromTheProviderAndKnowsNoOther) {
  const auto provider = TInmemNamespaceProvider::GetInstance();
  EXPECT_EQ(TInmemNamespaceProvider::Initialize(), 0);
  EXPECT_EQ(TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem"), provider);
  EXPECT_EQ(space->GetNamespaceProvider({}), provider);
  EXPECT_EQ(provider->GetType({}), 2);
  EXPECT_FALSE(provider->IsIndicationsSupported({}));

  const auto path = PutInstance(DefineClass("CIM_Port"), "1")->GetReference({});
  const auto other = NewNamespace(false);
  EXPECT_EQ(&(*other = *space), other.get());
  EXPECT_EQ(Try([&] { other->GetInstance(path, {}); }), TOutcome::Quiet(15));
}

TEST_F(TInmemNamespaceTest, NormalizesNames) {
  EXPECT_EQ(TInmemNamespace::NormalizeName(""), "");
  EXPECT_EQ(TInmemNamespace::NormalizeName("_X9_ManagedElement"), "_x9_managedelement");
  for (const std::string& name :
       TNames{"9x", "A-b", "a.", {"a\0b", 3}, "\xe9t\xe9", "caf\xc3\xa9"}) {
    EXPECT_EQ(Try([&] { TInmemNamespace::NormalizeName(name); }), InvalidName(name));
  }
}

TEST_F(TInmemNamespaceTest, RejectsWhatItDoesNotSupport) {
  const TCIMReference path({}, {});
  std::string text;
  const TOutcome unsupported = TOutcome::Quiet(1);
  EXPECT_EQ(Try([&] { space->AddUnderlyingNamespace({}, {}); }), unsupported);
  EXPECT_EQ(Try([&] { space->Subscribe({}, {}, {}); }), unsupported);
  EXPECT_EQ(Try([&] { space->DeleteInstance(path, {}); }), unsupported);
  EXPECT_EQ(Try([&] { space->ModifyInstance(path, {}, {}); }), unsupported);
  EXPECT_EQ(Try([&] { space->ExecuteQuery({}, text, text, {}); }), unsupported);

  const auto key = NewQualifierDecl("Key");
  key->AddToNamespace({});
  key->RemoveQualifierDecl({});
  EXPECT_EQ(space->GetQualifierDecl("kEY", {}), key) << "it stays";
}

TEST_F(TInmemNamespaceRedefinitionTest, KeepsTheFirstOfWhateverHoldsThisName) {
  const TClass second = NewClass("My_ZELSG_PhysicalNetworkPort2");
  const TClass first = DefineClass(second->GetName({}));
  Qualify(*second, "Abstract");
  second->AddToNamespace({});
  EXPECT_EQ(space->GetClass(first->GetName({}), {}), first);
}

}  // namespace
}  // namespace NZELVYR20

#include "TInmemNamespace.h"

#include "INamespaceProviderManager.h"
#include "TCIMReference.h"
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

  DefineClass("CIM_Port");
  const auto other = NewNamespace(false);
  EXPECT_EQ(&(*other = *space), other.get());
  EXPECT_EQ(Try([&] { other->GetClass("CIM_Port", {}); }), TOutcome::Quiet(15));
}

TEST_F(TInmemNamespaceTest, NormalizesNames) {
  EXPECT_EQ(TInmemNamespace::NormalizeName(""), "");
  EXPECT_EQ(TInmemNamespace::NormalizeName("_X9_ManagedElement"), "_x9_managedelement");
  for (const std::string& name :
       TNames{"9x", "A-b", "a.", {"a\0b", 3}, "\xe9t\xe9", "caf\xc3\xa9"}) {
    EXPECT_EQ(Try([&] { TInmemNamespace::NormalizeName(name); }), InvalidName(name));
  }
}

TEST_F(TInmemNamespaceTest, FindsElementsByName) {
  const TClass port = DefineClass("CIM_Port");
  const TClass root = port->GetSuperClass({});
  const TClass notAdded = NewClass("CIM_Disk");
  EXPECT_EQ(space->GetClass("cim_PORT", {}), port);
  EXPECT_EQ(space->GetClass("", {}), root);
  EXPECT_EQ(space->GetClass("<root>", {}), root);
  EXPECT_EQ(Try([&] { space->GetClass("<ROOT>", {}); }), InvalidName("<ROOT>"));
  EXPECT_EQ(Try([&] { space->GetClass("CIM_Disk", {}); }), TOutcome::Quiet(15));
  EXPECT_EQ(Try([&] { EXPECT_FALSE(space->GetQualifierDecl("Key", {})); }), TOutcome::Quiet());
  EXPECT_EQ(Try([&] { space->GetQualifierDecl("a.b", {}); }), InvalidName("a.b"));

  const TCIMReference path = PutInstance(port, "1")->GetReference({});
  EXPECT_TRUE(space->GetInstance(path, {}));
  EXPECT_EQ(Try([&] { NewNamespace(false)->GetInstance(path, {}); }), TOutcome::Quiet(15));
  space->ClearInstances();
  EXPECT_EQ(Try([&] { EXPECT_FALSE(space->GetInstance(path, {})); }), TOutcome::Quiet());
}

TEST_F(TInmemNamespaceTest, RefusesATakenName) {
  const TClass second = NewClass("cim_foo");
  const TClass first = DefineClass("CIM_Foo");
  Qualify(*second, "Abstract");
  EXPECT_EQ(Try([&] { second->AddToNamespace({}); }),
            TOutcome::Logged(16, 3, "Inmem: TInmemNamespace: class cim_foo already defined"));
  EXPECT_EQ(SubClassesOf(space->GetClass("", {})), TNames{"CIM_Foo"});

  const auto key = NewQualifierDecl("Key");
  EXPECT_EQ(Try([&] { key->AddToNamespace({}); }), TOutcome::Quiet());
  EXPECT_EQ(Try([&] { NewQualifierDecl("KEY")->AddToNamespace({}); }),
            TOutcome::Logged(16, 3, "Inmem: TInmemNamespace: qualifier KEY already defined"));
  key->RemoveQualifierDecl({});
  EXPECT_EQ(space->GetQualifierDecl("kEY", {}), key);
}

TEST_F(TInmemNamespaceTest, ChecksANameOnlyWhenTheElementIsAdded) {
  TClass made;
  EXPECT_EQ(Try([&] { made = NewClass("9x"); }), InvalidName("9x", 0));
  Qualify(*made, "Abstract");
  EXPECT_EQ(Try([&] { made->AddToNamespace({}); }), InvalidName("9x"));
  EXPECT_EQ(Try([&] { NewQualifierDecl("a-b")->AddToNamespace({}); }), InvalidName("a-b"));
}

TEST_F(TInmemNamespaceTest, AllocatingAKnownNameRefreshesThatClass) {
  const TClass base = DefineClass("CIM_Base");
  const TClass sub = DefineClass("CIM_Sub", base);
  EXPECT_EQ(NewClass("cim_SUB", DefineClass("CIM_Other")), sub);
  EXPECT_EQ(sub->GetSuperClass({}), base);
  const TClass root = space->GetClass("", {});
  EXPECT_EQ(NewClass("", base), root);
  EXPECT_EQ(NewClass("<root>"), root);
  EXPECT_FALSE(root->GetSuperClass({}));
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
}

TEST_F(TInmemNamespaceRedefinitionTest, ReplacesAClassAndLeavesItsSubclassesAlone) {
  const TClass base = DefineClass("CIM_Base");
  const TClass second = NewClass("cim_port");
  Qualify(*second, "Abstract");
  const TClass first = DefineClass("CIM_Port", base);
  const TClass child = DefineClass("CIM_Child", first);
  EXPECT_EQ(Try([&] { second->AddToNamespace({}); }), TOutcome::Quiet());
  EXPECT_EQ(space->GetClass("CIM_Port", {}), second);
  EXPECT_EQ(SubClassesOf(second), TNames{"CIM_Child"});
  EXPECT_EQ(child->GetSuperClass({}), first);
  EXPECT_TRUE(second->GetSuperClass({})->IsRootClass({})) << "the superclass is not transferred";
  EXPECT_EQ(SubClassesOf(base), TNames{"CIM_Port"});

  NewQualifierDecl("Key")->AddToNamespace({});
  const auto key = NewQualifierDecl("KEY");
  key->AddToNamespace({});
  EXPECT_EQ(space->GetQualifierDecl("Key", {}), key);
}

TEST_F(TInmemNamespaceRedefinitionTest, KeepsTheFirstPhysicalNetworkPort) {
  const std::pair<const char*, bool> rows[] = {
      {"ZELSG_PhysicalNetworkPort", true},
      {"My_ZELSG_PhysicalNetworkPort2", true},
      {"ZELSG_PhysicalPort", false},
  };
  for (const auto& [name, firstStays] : rows) {
    const TClass second = NewClass(name);
    const TClass first = DefineClass(name);
    Qualify(*second, "Abstract");
    EXPECT_EQ(Try([&] { second->AddToNamespace({}); }), TOutcome::Quiet());
    EXPECT_EQ(space->GetClass(name, {}), firstStays ? first : second) << name;
  }
}

}  // namespace
}  // namespace NZELVYR20

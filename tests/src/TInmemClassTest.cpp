#include "TInmemClass.h"

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What the random operations do not reach.
using TInmemClassTest = TRepositoryTest;

TEST_F(TInmemClassTest, FindsAssociatedClasses) {
  const TClass system = DefineClass("CIM_System");
  const TClass device = DefineClass("CIM_Device");
  const TClass port = DefineClass("CIM_Port", device);
  const TClass etherPort = DefineClass("CIM_EtherPort", port);
  const TClass disk = DefineClass("CIM_Disk", device);
  const auto onSystem = DefineAssociation("CIM_OnSystem", {{"System", system}, {"Device", device}});
  DefineAssociation("CIM_PortOnSystem", {}, onSystem);
  DefineAssociation("CIM_Link", {{"From", port}, {"To", port}});
  DefineAssociation("CIM_Triple", {{"A", disk}, {"B", system}, {"C", system}});
  const struct {
    const char* description;
    TClass from;
    const char* association;
    const char* result;
    const char* role;
    const char* resultRole;
    TNames expected;
  } rows[] = {
      {"once for each association", device, "", "", "", "", {"CIM_System", "CIM_System"}},
      {"each class once for one association", disk, "", "", "", "", {"CIM_System"}},
      {"not those of superclasses", etherPort, "", "", "", "", {}},
      {"by result class", system, "CIM_Triple", "CIM_Device", "", "", {"CIM_Disk"}},
      {"not by the role of another class", device, "CIM_OnSystem", "", "System", "", {}},
      {"by role", device, "CIM_PortOnSystem", "", "DEVICE", "", {"CIM_System"}},
      {"to the first end, from the other", port, "", "", "", "From", {"CIM_Port"}},
      {"its own kind by role", system, "CIM_Triple", "CIM_System", "C", "", {"CIM_System"}},
  };
  for (const auto& row : rows) {
    const auto names = NamesOf([&](const TNamer& note) {
      row.from->EnumerateAssociatedClasses(note, row.association, row.result, row.role,
                                           row.resultRole, {});
    });
    EXPECT_EQ(names, row.expected) << row.description;
  }
  int calls = 0;
  const auto stop = [&](const TClass&) { return ++calls == 0; };
  device->EnumerateAssociatedClasses(stop, "", "", "", "", {});
  EXPECT_EQ(calls, 1) << "false ends the whole walk";
}

/// The random operations redeclare these too seldom.
TEST_F(TInmemClassTest, PortTypesAndDuplexesAreRedeclaredWhereverTheWordStands) {
  const TClass port = NewClass("CIM_Port");
  for (const char* name : {"AnyPortTypeX", "myspeedDuplex"}) {
    DeclareProperty(port, name, TCIMValue(1));
    const auto again = DeclareProperty(port, name, "");
    EXPECT_EQ(port->GetPropertyDecl(name, {}), again) << name;
  }
  const auto kept = DeclareProperty(port, "Porttype", TCIMValue(1));
  DeclareProperty(port, "Porttype", "");
  EXPECT_EQ(port->GetPropertyDecl("Porttype", {}), kept);
  const auto overriding = NewPropertyDecl(port, "MyPORTtype", TCIMValue(1), {"Override"});
  EXPECT_EQ(Try([&] { overriding->AddToClass({}); }), TOutcome::Quiet()) << "of nothing, unlogged";
}

TEST_F(TInmemClassTest, ComparesNamesByteForByteAndDoesLittleElse) {
  const TClass lower = NewClass("cim_port");
  const TClass port = DefineClass("CIM_Port");
  const TClass elsewhere = NewNamespace(false)->AllocateClass("CIM_Port", {}, {});
  EXPECT_TRUE(*port == *elsewhere);
  EXPECT_TRUE(NewClass("CIM_Sub", port)->IsSubclassOf(elsewhere, {}));
  EXPECT_FALSE(*port == *lower || port->IsSubclassOf(lower, {}));
  EXPECT_FALSE(NewClass("CIM_Sub", port)->IsSubclassOf(lower, {}));
  EXPECT_TRUE(*port < *lower && !(*lower < *port));
  port->ModifyClass(lower, {});
  EXPECT_EQ(&(*port = *lower), port.get());
  EXPECT_EQ(port->GetName({}), "CIM_Port");
  EXPECT_TRUE(port->GetPropertyDecl("Id", {}));

  lower->AddAssociationClass(port);
  lower->AddAssociationClass(port);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { lower->RemoveAssociationClass(port); }), TOutcome::Quiet(status));
  }

  TCIMContext parameters;
  EXPECT_EQ(port->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(Try([&] { port->GetProperty("Id", {}); }), TOutcome::Quiet(15));
  EXPECT_EQ(Try([&] { port->SetPropertyValue("Id", TCIMValue("1"), {}); }), TOutcome::Quiet(15));
}

TEST_F(TInmemClassTest, FalseEndsTheWalkAmongSiblingsOnly) {
  const TClass device = DefineClass("Device");
  const TClass port = DefineClass("Port", device);
  DefineClass("EtherPort", port), DefineClass("SerialPort", port), DefineClass("Disk", device);
  TNames names;
  const auto note = [&](const TClass& subClass) {
    names.push_back(subClass->GetName({}));
    return names.back() != "EtherPort";
  };
  device->EnumerateSubClasses(note, true, {});
  EXPECT_EQ(names, (TNames{"Port", "EtherPort", "Disk"}));
}

TEST_F(TInmemClassTest, KeyNamesPassAPlainFailureOn) {
  const auto fail = [](const std::string*) -> bool { throw TForeignFailure(28); };
  ExpectPlainFailure(28, [&] { DefineClass("CIM_Port")->EnumerateKeyNames(fail, {}); });
}

}  // namespace
}  // namespace NZELVYR20

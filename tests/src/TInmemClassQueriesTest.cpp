#include <functional>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

enum EAnswer { kTrue, kFalse, kThrow };

using TEnumeration = std::function<void(const TNamer&)>;

/// What an enumeration hands out to a callback that answers so, either always or only to one name;
/// "thrown" at the end means that the callback's exception passed.
TNames Walk(const TEnumeration& enumerate, EAnswer answer = kTrue, const std::string& only = "") {
  TNames names;
  const TNamer namer{[&](const std::string& name) {
    names.push_back(name);
    if (!only.empty() && name != only) return true;
    if (answer == kThrow) throw TVYRException(18);
    return answer == kTrue;
  }};
  try {
    enumerate(namer);
  } catch (const TVYRException&) {
    names.push_back("thrown");
  }
  return names;
}

TNames Sorted(TNames names) {
  std::sort(names.begin(), names.end());
  return names;
}

class TInmemClassQueriesTest : public TRepositoryTest {
 protected:
  TClass root = space->GetClass("", {});
  TClass system = DefineClass("CIM_System");
  TClass device = DefineClass("CIM_Device");
  TClass port = DefineClass("CIM_Port", device);
  TClass etherPort = DefineClass("CIM_EtherPort", port);
  TClass disk = DefineClass("CIM_Disk", device);
};

TEST_F(TInmemClassQueriesTest, EachEnumerationMakesItsOwnOfFalseAndExceptions) {
  const TClass link = NewClass("CIM_Link");
  const TPropertyDecl speed = link->AllocatePropertyDecl("Speed", TCIMValue(1), {});
  const auto reset = link->AllocateMethodDecl("Reset", TCIMValue::TCIMType::kUInt32, {});
  const auto mode = reset->AllocateParameterDecl("Mode", TCIMValue::TCIMType::kString, {});
  const std::vector<ICIMNamedElement*> elements{link.get(), speed.get(), reset.get(), mode.get()};
  for (const char* name : {"Beta", "alpha", "_c"}) {
    NewQualifierDecl(name)->AddToNamespace({});
    DeclareProperty(link, name, TCIMValue(1), {"Key"});
    link->AllocateMethodDecl(name, TCIMValue::TCIMType::kUInt32, {})->AddToClass({});
    reset->AllocateParameterDecl(name, TCIMValue::TCIMType::kString, {})->AddToMethod({});
    for (ICIMNamedElement* element : elements) Qualify(*element, name);
  }
  const auto parameters = [&](TCIMParameterDeclCallback callback) {
    reset->EnumerateParameterDecls(callback, {});
  };
  const struct {
    const char* description;
    bool falseStops;
    bool exceptionsPass;
    TEnumeration enumerate;
  } rows[] = {
      {"declared", false, false, [&](auto& note) { space->EnumerateQualifierDecls(note, {}); }},
      {"keys", true, true, [&](auto& note) { link->EnumerateKeyNames(note, {}); }},
      {"properties", true, false, [&](auto& note) { link->EnumeratePropertyDecls(note, {}); }},
      {"methods", true, false, [&](auto& note) { link->EnumerateMethodDecls(note, {}); }},
      {"of a class", true, false, [&](auto& note) { link->EnumerateQualifiers(note, {}); }},
      {"of a property", false, false, [&](auto& note) { speed->EnumerateQualifiers(note, {}); }},
      {"of a method", false, true, [&](auto& note) { reset->EnumerateQualifiers(note, {}); }},
      {"of a parameter", false, true, [&](auto& note) { mode->EnumerateQualifiers(note, {}); }},
      {"parameters", false, true, parameters},
  };
  const TNames all{"_c", "alpha", "Beta"};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(Walk(row.enumerate), all);
    EXPECT_EQ(Walk(row.enumerate, kFalse), row.falseStops ? TNames{"_c"} : all);
    EXPECT_EQ(Walk(row.enumerate, kThrow), row.exceptionsPass ? (TNames{"_c", "thrown"}) : all);
  }
}

TEST_F(TInmemClassQueriesTest, IsSubclassOfGoesByNameUpToTheRootClass) {
  const auto other = NewNamespace(false);
  EXPECT_TRUE(port->IsSubclassOf(port, {}));
  EXPECT_TRUE(etherPort->IsSubclassOf(device, {}));
  EXPECT_FALSE(port->IsSubclassOf(etherPort, {}));
  EXPECT_FALSE(port->IsSubclassOf(root, {}));
  EXPECT_TRUE(etherPort->IsSubclassOf(other->AllocateClass("CIM_Device", {}, {}), {}));
  EXPECT_FALSE(etherPort->IsSubclassOf(other->AllocateClass("cim_device", {}, {}), {}));
}

TEST_F(TInmemClassQueriesTest, SubclassesComeDepthFirst) {
  DefineClass("CIM_SlowPort", etherPort);
  const TEnumeration deep = [&](auto& note) { device->EnumerateSubClasses(note, true, {}); };
  EXPECT_EQ(Walk(deep), (TNames{"CIM_Port", "CIM_EtherPort", "CIM_SlowPort", "CIM_Disk"}));
  EXPECT_EQ(Walk(deep, kFalse, "CIM_EtherPort"), (TNames{"CIM_Port", "CIM_EtherPort", "CIM_Disk"}))
      << "false ends the nested walk only";
  EXPECT_EQ(Walk(deep, kThrow, "CIM_Port"), (TNames{"CIM_Port", "CIM_Disk"}))
      << "what is below is lost with it";
  const TEnumeration top = [&](auto& note) { space->EnumerateRootClasses(note, {}); };
  EXPECT_EQ(Walk(top), (TNames{"CIM_System", "CIM_Device"}));
  EXPECT_EQ(Walk(top, kFalse), TNames{"CIM_System"});
}

TEST_F(TInmemClassQueriesTest, InstancesComeWhateverTheCallbackDoes) {
  for (const TClass& cimClass : {disk, etherPort, port}) PutInstance(cimClass, "2");
  PutInstance(port, "1");
  const TNames ofPort{"CIM_Port.id=\"1\"", "CIM_Port.id=\"2\""};
  const TNames all{ofPort[0], ofPort[1], "CIM_EtherPort.id=\"2\"", "CIM_Disk.id=\"2\""};
  for (const EAnswer answer : {kTrue, kFalse, kThrow}) {
    EXPECT_EQ(Walk([&](auto& note) { port->EnumerateInstances(note, false, {}); }, answer), ofPort);
    EXPECT_EQ(Walk([&](auto& note) { device->EnumerateInstances(note, true, {}); }, answer), all);
  }
}

TEST_F(TInmemClassQueriesTest, KeyNamesIncludeInheritedOnesAsDeclared) {
  DeclareProperty(port, "ZONE", TCIMValue(1), {"Key"});
  const TClass sub = NewClass("CIM_Sub", port);
  DeclareProperty(sub, "bank", TCIMValue(1), {"KEY"});
  Qualify(*DeclareProperty(sub, "Off", TCIMValue(1)), "Key", TCIMValue(false));
  const TEnumeration keys = [&](auto& note) { sub->EnumerateKeyNames(note, {}); };
  EXPECT_EQ(Walk(keys), (TNames{"bank", "Id", "ZONE"}));
  Qualify(*DeclareProperty(sub, "Odd", TCIMValue(1)), "Key", TCIMValue("no boolean"));
  EXPECT_EQ(Try([&] { NamesOf(keys); }), TOutcome::Quiet(14));
}

class TInmemAssociationQueriesTest : public TInmemClassQueriesTest {
 protected:
  TClass onSystem = DefineAssociation("CIM_OnSystem", {{"System", system}, {"Device", device}});
  TClass portOnSystem = DefineAssociation("CIM_PortOnSystem", {}, onSystem);
  TClass link = DefineAssociation("CIM_Link", {{"From", port}, {"To", port}});
  TClass triple = DefineAssociation("CIM_Triple", {{"A", disk}, {"B", system}, {"C", system}});
};

TEST_F(TInmemAssociationQueriesTest, FindsAssociationClassesUpTheHierarchy) {
  const struct {
    const char* description;
    TClass from;
    const char* resultClass;
    const char* role;
    TNames expected;
  } rows[] = {
      {"the root class is above none", etherPort, "<root>", "", {}},
      {"by role", disk, "", "a", {"CIM_Triple"}},
      {"by role, up", disk, "", "DEVICE", {"CIM_OnSystem", "CIM_PortOnSystem"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Sorted(Walk([&](auto& note) {
                row.from->EnumerateAssociationClasses(note, row.resultClass, row.role, {});
              })),
              row.expected)
        << row.description;
  }
  const auto ask = [&](auto& note) { etherPort->EnumerateAssociationClasses(note, "", "", {}); };
  EXPECT_EQ(Walk(ask, kFalse), TNames{"CIM_Link"}) << "the nearer class comes first";
  EXPECT_EQ(Try([&] { disk->EnumerateAssociationClasses({}, "CIM_None", "", {}); }),
            TOutcome::Quiet(15));
}

TEST_F(TInmemAssociationQueriesTest, FindsAssociatedClasses) {
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
      {"by role", device, "CIM_PortOnSystem", "", "DEVICE", "", {"CIM_System"}},
      {"to the first end, from the other", port, "", "", "", "From", {"CIM_Port"}},
      {"its own kind by role", system, "CIM_Triple", "CIM_System", "C", "", {"CIM_System"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Sorted(Walk([&](auto& note) {
                row.from->EnumerateAssociatedClasses(note, row.association, row.result, row.role,
                                                     row.resultRole, {});
              })),
              row.expected)
        << row.description;
  }
  const auto ask = [&](auto& n) { device->EnumerateAssociatedClasses(n, "", "", "", "", {}); };
  EXPECT_EQ(Walk(ask, kFalse), TNames{"CIM_System"}) << "false ends the whole walk";
}

}  // namespace
}  // namespace NZELVYR20

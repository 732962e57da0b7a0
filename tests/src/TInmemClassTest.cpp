#include "TInmemClass.h"

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TInmemClassRedefinitionTest = TRedefinitionTest;

/// What the random operations do not reach.
class TInmemClassTest : public TRepositoryTest {
 protected:
  static TNames AssociatedWith(const TClass& from, const char* association = "",
                               const char* result = "", const char* role = "",
                               const char* resultRole = "") {
    TNames names = NamesOf([&](const TNamer& note) {
      from->EnumerateAssociatedClasses(note, association, result, role, resultRole, {});
    });
    std::sort(names.begin(), names.end());
    return names;
  }

  TClass base = DefineClass("CIM_Base");
};

TEST_F(TInmemClassTest, AssociationsRegisterWithTheWidestClassOnce) {
  const TClass sub = DefineClass("CIM_Sub", base);
  const TClass other = DefineClass("CIM_Other");
  const struct {
    const char* description;
    std::vector<std::pair<std::string, TClass>> ends;
    std::vector<bool> expected;  ///< whether it registers with base, sub and other
  } rows[] = {
      {"two classes", {{"A", base}, {"B", other}}, {true, false, true}},
      {"one class three times", {{"A", sub}, {"B", sub}, {"C", sub}}, {false, true, false}},
      {"a class and its subclass", {{"A", base}, {"B", sub}}, {true, false, false}},
      {"a subclass and its class", {{"A", sub}, {"B", base}}, {true, false, false}},
      {"around another", {{"A", other}, {"B", sub}, {"C", other}}, {false, true, true}},
  };
  // Unlike the query for associations, this one asks the class itself and none of those above.
  const auto registrations = [&] {
    std::vector<bool> found;
    for (const auto& asked : {base, sub, other}) found.push_back(!AssociatedWith(asked).empty());
    return found;
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TClass link = DefineAssociation("CIM_Link" + std::to_string(&row - rows), row.ends);
    EXPECT_EQ(registrations(), row.expected);
    link->RemoveFromNamespace({});
    EXPECT_EQ(registrations(), std::vector<bool>(3)) << "each registration is undone once";
  }
  base->AddAssociationClass(other);
  base->AddAssociationClass(other);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { base->RemoveAssociationClass(other); }), TOutcome::Quiet(status));
  }
}

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
      {"by role", device, "CIM_PortOnSystem", "", "DEVICE", "", {"CIM_System"}},
      {"to the first end, from the other", port, "", "", "", "From", {"CIM_Port"}},
      {"its own kind by role", system, "CIM_Triple", "CIM_System", "C", "", {"CIM_System"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(AssociatedWith(row.from, row.association, row.result, row.role, row.resultRole),
              row.expected)
        << row.description;
  }
  int calls = 0;
  const auto stop = [&](const TClass&) { return ++calls == 0; };
  device->EnumerateAssociatedClasses(stop, "", "", "", "", {});
  EXPECT_EQ(calls, 1) << "false ends the whole walk";
}

TEST_F(TInmemClassRedefinitionTest, ARedefinedSubclassTakesTheLastPlace) {
  const TClass base = DefineClass("CIM_Base");
  const TClass again = NewClass("CIM_Sub", base);
  const TClass otherSpelling = NewClass("CIM_SUB", base);
  DefineClass("CIM_Sub", base);
  DefineClass("CIM_Other", base);
  again->AddToNamespace({});
  EXPECT_EQ(SubClassesOf(base), (TNames{"CIM_Other", "CIM_Sub"}));
  otherSpelling->AddToNamespace({});
  EXPECT_EQ(SubClassesOf(base), (TNames{"CIM_Other", "CIM_Sub", "CIM_SUB"}));
  again->RemoveFromNamespace({});
  again->AddToNamespace({});
  EXPECT_EQ(SubClassesOf(base), (TNames{"CIM_Other", "CIM_SUB", "CIM_Sub"}));
}

TEST_F(TInmemClassTest, ComparesNamesByteForByteAndDoesLittleElse) {
  const TClass lower = NewClass("cim_port");
  const TClass port = DefineClass("CIM_Port");
  const TClass elsewhere = NewNamespace(false)->AllocateClass("CIM_Port", {}, {});
  EXPECT_TRUE(*port == *elsewhere);
  EXPECT_TRUE(NewClass("CIM_Sub", port)->IsSubclassOf(elsewhere, {}));
  EXPECT_FALSE(*port == *lower);
  EXPECT_TRUE(*port < *lower && !(*lower < *port));
  port->ModifyClass(lower, {});
  EXPECT_EQ(&(*port = *lower), port.get());
  EXPECT_EQ(port->GetName({}), "CIM_Port");
  EXPECT_TRUE(port->GetPropertyDecl("Id", {}));

  TCIMContext parameters;
  EXPECT_EQ(port->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(Try([&] { port->GetProperty("Id", {}); }), TOutcome::Quiet(15));
  EXPECT_EQ(Try([&] { port->SetPropertyValue("Id", TCIMValue("1"), {}); }), TOutcome::Quiet(15));
}

}  // namespace
}  // namespace NZELVYR20

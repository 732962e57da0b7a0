#include "TInmemClass.h"

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TInmemClassRedefinitionTest = TRedefinitionTest;

enum EFlag { kAbsent, kNull, kFalse, kTrue };

class TInmemClassTest : public TRepositoryTest {
 protected:
  TOutcome TryAdd(const TClass& cimClass) {
    return Try([&] { cimClass->AddToNamespace({}); });
  }

  TOutcome TryRemove(const TClass& cimClass) {
    return Try([&] { cimClass->RemoveFromNamespace({}); });
  }

  void SetFlag(ICIMNamedElement& element, const char* name, EFlag flag) {
    const TCIMValue null = TCIMValue::Null(TType::kBoolean);
    if (flag != kAbsent) Qualify(element, name, flag == kNull ? null : TCIMValue(flag == kTrue));
  }

  /// Unlike the other query, this one asks the class itself and none of its superclasses.
  static bool HasAssociations(const TClass& cimClass) {
    bool hasAny = false;
    const auto note = [&](const TClass&) { return hasAny = true; };
    cimClass->EnumerateAssociatedClasses(note, "", "", "", "", {});
    return hasAny;
  }

  TClass root = space->GetClass("", {});
  TClass base = DefineClass("CIM_Base");
};

TEST_F(TInmemClassTest, PassesDownDifferentlyWhenMadeAndWhenRefreshed) {
  EXPECT_TRUE(root->IsRootClass({}) && !root->GetSuperClass({}));
  EXPECT_TRUE(!base->IsRootClass({}) && base->GetSuperClass({}) == root);

  const auto reset = base->AllocateMethodDecl("Reset", TType::kUInt32, {});
  const TClass refreshed = DefineClass("CIM_Refreshed", base);
  const TPropertyDecl own = DeclareProperty(refreshed, "Speed", TCIMValue(1));
  Qualify(*refreshed, "Units", TCIMValue("own"));
  const TPropertyDecl speed = DeclareProperty(base, "Speed", TCIMValue(1));
  const TPropertyDecl size = DeclareProperty(base, "Size", TCIMValue(1));
  reset->AddToClass({});
  for (const char* name : {"Version", "Units"}) Qualify(*base, name, TCIMValue("base's"));
  Qualify(*base, "Terminal", TCIMValue(true), ICIMQualifierDecl::kOverridable);
  Qualify(*base, "Abstract");
  const TClass made = NewClass("CIM_Made", base);
  base->RemovePropertyDecl(base->GetPropertyDecl("Id", {}));
  EXPECT_EQ(NewClass("CIM_Refreshed"), refreshed);

  for (const TClass& sub : {made, refreshed}) {
    SCOPED_TRACE(sub->GetName({}));
    const bool isMade = sub == made;
    EXPECT_EQ(sub->GetPropertyDecl("Size", {}), size);
    EXPECT_EQ(sub->GetPropertyDecl("Speed", {}), isMade ? speed : own);
    EXPECT_TRUE(sub->GetPropertyDecl("Id", {})) << "nothing is taken away";
    EXPECT_EQ(sub->GetMethodDecl("Reset", {}), reset);
    const auto version = sub->GetQualifier("Version", {});
    ASSERT_TRUE(version);
    EXPECT_EQ(version->GetClassOrProperty({}), sub) << "a copy of its own";
    EXPECT_TRUE(version->GetPropagated({}));
    EXPECT_EQ(sub->GetQualifier("Units", {})->GetValue({}), TCIMValue(isMade ? "base's" : "own"));
    EXPECT_FALSE(sub->GetQualifier("Terminal", {})) << "its flavor does not let it pass";
    EXPECT_EQ(sub->IsAbstract({}), !isMade) << "only making leaves this one behind";
  }
}

TEST_F(TInmemClassTest, NeedsAKeyUnlessAbstract) {
  const struct {
    const char* description;
    TClass superClass;
    EFlag abstract;
    EFlag association;
    EFlag key;
    bool isValid;
  } rows[] = {
      {"a key", {}, kAbsent, kAbsent, kTrue, true},
      {"no key", {}, kAbsent, kAbsent, kAbsent, false},
      {"KEY is false", {}, kAbsent, kAbsent, kFalse, false},
      {"KEY is null", {}, kAbsent, kAbsent, kNull, false},
      {"an inherited key", base, kAbsent, kAbsent, kAbsent, true},
      {"abstract", {}, kTrue, kAbsent, kAbsent, true},
      {"ABSTRACT is false", {}, kFalse, kFalse, kAbsent, false},
      {"ABSTRACT is null", {}, kNull, kNull, kAbsent, false},
      {"an association", {}, kAbsent, kTrue, kAbsent, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const std::string name = "CIM_Made" + std::to_string(&row - rows);
    const TClass made = NewClass(name, row.superClass);
    SetFlag(*made, "ABSTRACT", row.abstract);
    SetFlag(*made, "ASSOCIATION", row.association);
    SetFlag(*DeclareProperty(made, "Number", TCIMValue(1)), "KEY", row.key);
    const TOutcome noKeys = TOutcome::Logged(7, 3, "Inmem: Class " + name + " has no keys");
    EXPECT_EQ(TryAdd(made), row.isValid ? TOutcome::Quiet() : noKeys);
    EXPECT_EQ(Try([&] { space->GetClass(name, {}); }), TOutcome::Quiet(row.isValid ? 0 : 15));
    EXPECT_EQ(made->IsAbstract({}), row.abstract == kTrue);
    EXPECT_EQ(made->IsAssociation({}), row.association == kTrue);
  }
}

TEST_F(TInmemClassTest, LeavesItsNamespaceOnlyWhenNothingNeedsIt) {
  const TOutcome cannotLeave = TOutcome::Quiet(17);
  const TClass sub = DefineClass("CIM_Sub", base);
  const TClass link = DefineAssociation("CIM_Link", {{"From", sub}, {"To", DefineClass("CIM_To")}});
  PutInstance(sub, "1");
  EXPECT_EQ(TryRemove(NewClass("CIM_NotAdded")), cannotLeave);
  EXPECT_EQ(TryRemove(base), cannotLeave) << "it has a subclass";
  EXPECT_EQ(TryRemove(sub), cannotLeave) << "an association refers to it";
  EXPECT_EQ(TryRemove(link), TOutcome::Quiet());
  EXPECT_EQ(TryRemove(sub), TOutcome::Quiet()) << "instances are no obstacle";
  EXPECT_EQ(TryRemove(sub), cannotLeave);
  EXPECT_EQ(SubClassesOf(base), TNames());
  EXPECT_EQ(space->GetClass("CIM_Sub", {}), sub) << "its name stays taken";
  EXPECT_EQ(TryAdd(sub),
            TOutcome::Logged(16, 3, "Inmem: TInmemNamespace: class CIM_Sub already defined"));
  EXPECT_EQ(TryRemove(base), TOutcome::Quiet());
}

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
  const auto registrations = [&] {
    return std::vector<bool>{HasAssociations(base), HasAssociations(sub), HasAssociations(other)};
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TClass link = DefineAssociation("CIM_Link" + std::to_string(&row - rows), row.ends);
    EXPECT_EQ(registrations(), row.expected);
    EXPECT_EQ(TryRemove(link), TOutcome::Quiet()) << "each registration is undone once";
    EXPECT_EQ(registrations(), std::vector<bool>(3));
  }
  base->AddAssociationClass(other);
  base->AddAssociationClass(other);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { base->RemoveAssociationClass(other); }), TOutcome::Quiet(status));
  }
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
  EXPECT_TRUE(*port == *NewNamespace(false)->AllocateClass("CIM_Port", {}, {}));
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

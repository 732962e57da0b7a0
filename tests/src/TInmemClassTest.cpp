#include "TInmemClass.h"

#include <typeinfo>

#include "ICIMMethodDecl.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

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

struct TForeignFailure : TVYRException {
  using TVYRException::TVYRException;
};

/// The failure that comes out where a foreign one went in: a plain one of the same status.
template <class TOperation>
void ExpectPlainFailure(int status, TOperation operation) {
  try {
    operation();
    ADD_FAILURE() << "no failure";
  } catch (const TVYRException& failure) {
    EXPECT_EQ(failure.GetStatusCode(), status);
    EXPECT_EQ(typeid(failure), typeid(TVYRException));
  }
}

TEST_F(TInmemClassTest, KeyNamesPassAPlainFailureOn) {
  const auto fail = [](const std::string*) -> bool { throw TForeignFailure(28); };
  ExpectPlainFailure(28, [&] { DefineClass("CIM_Port")->EnumerateKeyNames(fail, {}); });
}

/// A declaration of another implementation, and what it does when asked for "OVERRIDE".
template <class TInterface, class TSelf>
struct TForeignDecl : TInmemDeclaration<TInterface, TSelf> {
  using TAsk = std::function<boost::shared_ptr<ICIMQualifier>()>;

  TForeignDecl(const std::string& name, TType valueType, TAsk answer)
      : TInmemDeclaration<TInterface, TSelf>(name), type(valueType), ask(std::move(answer)) {}

  using TInmemDeclaration<TInterface, TSelf>::operator=;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext) const override {
    EXPECT_EQ(name, "OVERRIDE");
    return ask();
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, bool&,
                                                TCIMContext) const override {
    throw TVYRException(1);
  }
  void EnumerateQualifiers(const TCIMQualifierCallback&, TCIMContext) const override {}
  void Validate(TCIMContext) override {}
  void AddToClass(TCIMContext) override {}
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext) const override { return {}; }

  TType type;
  TAsk ask;
  TCIMValue value;
};

struct TForeignProperty : TForeignDecl<ICIMPropertyDecl, TForeignProperty> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignProperty& operator=(const TForeignProperty&) { return *this; }
  void RemoveFromClass(TCIMContext) override {}
  TType GetType(TCIMContext) const override { return type; }
  bool IsArray(TCIMContext) const override { return false; }
  const TCIMValue& GetDefaultValue(TCIMContext) const override { return value; }
  void SetDefaultValue(const TCIMValue&, TCIMContext) override {}
};

struct TForeignMethod : TForeignDecl<ICIMMethodDecl, TForeignMethod> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignMethod& operator=(const TForeignMethod&) { return *this; }
  TType GetReturnType(TCIMContext) const override { return type; }
  boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string&, TType,
                                                             TCIMContext) override {
    return {};
  }
  boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string&,
                                                        TCIMContext) const override {
    return {};
  }
  void EnumerateParameterDecls(TCIMParameterDeclCallback&, TCIMContext) override {}
};

/// A class "Sub" that inherits "Speed" and "Reset" of type string, and declares "Own" and "Stop".
class TForeignDeclTest : public TInmemClassTest {
 protected:
  using TAsk = TForeignProperty::TAsk;

  TForeignDeclTest() {
    DeclareProperty(base, "Speed", "");
    base->AllocateMethodDecl("Reset", TType::kString, {})->AddToClass({});
    sub = NewClass("Sub", base);
    DeclareProperty(sub, "Own", "");
    sub->AllocateMethodDecl("Stop", TType::kString, {})->AddToClass({});
  }

  /// What the message with this beginning leads to, once or with the second message of methods.
  static TOutcome Refused(int status, const std::string& text, const std::string& reason) {
    const std::string method = text.substr(0, text.find(' '));
    TOutcome outcome = TOutcome::Logged(
        status, 3, "Inmem: Attempt to override method " + method + " in class Sub: " + reason);
    if (reason.empty()) outcome.log.clear();
    outcome.log.push_back({3, "Inmem: Attempt define method " + method + " in class Subfailed. " +
                                  "Reason = " + TVYRException(status).what()});
    return outcome;
  }

  TClass base = NewClass("Base");
  TClass sub;
  const TAsk missing = []() -> boost::shared_ptr<ICIMQualifier> { throw TVYRException(15); };
  const TAsk none = [] { return boost::shared_ptr<ICIMQualifier>(); };
  const TAsk present = [this] { return NewQualifier(*base, "Override", true); };
  const TAsk failing = []() -> boost::shared_ptr<ICIMQualifier> { throw TForeignFailure(28); };
};

TEST_F(TForeignDeclTest, PropertiesMeetTheRules) {
  const std::string attempt = "Inmem: Attempt to override property ";
  const struct {
    const char* name;
    TType type;
    TAsk ask;
    TOutcome outcome = TOutcome::Quiet();
  } rows[] = {
      {"9x", TType::kReference, failing,
       TOutcome::Logged(
           22, 0, "Inmem: Attempt to add reference property 9x to non-association class Sub")},
      {"9x", TType::kString, failing, InvalidName("9x")},
      {"Speed", TType::kUInt8, present,
       TOutcome::Logged(0, 3, attempt + "Speed in class Sub: different types")},
      {"OWN", TType::kString, present},
      {"speed", TType::kUInt8, missing},
      {"speed", TType::kUInt8, none},
      {"New", TType::kString, failing},
  };
  for (const auto& row : rows) {
    const auto added = boost::make_shared<TForeignProperty>(row.name, row.type, row.ask);
    EXPECT_EQ(Try([&] { sub->AddPropertyDecl(added); }), row.outcome) << row.name;
  }
  EXPECT_TRUE(sub->GetPropertyDecl("Own", {}) && sub->GetPropertyDecl("Speed", {}));
  const auto fatal = [&](const char* name, const TAsk& ask) {
    sub->AddPropertyDecl(boost::make_shared<TForeignProperty>(name, TType::kString, ask));
  };
  EXPECT_DEATH(fatal("Speed", present), "");
  EXPECT_DEATH(fatal("New", missing), "");
  EXPECT_THROW(fatal("New", []() -> TForeignProperty::TAsk::result_type { throw 7; }), int);
}

TEST_F(TForeignDeclTest, MethodsMeetTheRules) {
  const struct {
    const char* name;
    TType type;
    TAsk ask;
    TOutcome outcome;
  } rows[] = {
      {"9x", TType::kString, failing, InvalidName("9x")},
      {"Reset", TType::kUInt8, present, Refused(14, "Reset", "different types")},
      {"Stop", TType::kString, present, Refused(16, "Stop", "original was defined in this class")},
      {"New", TType::kString, failing, Refused(28, "New", "")},
      {"Reset", TType::kString, missing,
       TOutcome::Logged(16, 3, "Inmem: Attempt to add method Reset to class Sub: already exists")},
  };
  for (const auto& row : rows) {
    const auto added = boost::make_shared<TForeignMethod>(row.name, row.type, row.ask);
    EXPECT_EQ(Try([&] { sub->AddMethodDecl(added); }), row.outcome) << row.name;
  }
  const auto failed = boost::make_shared<TForeignMethod>("New", TType::kString, failing);
  ExpectPlainFailure(28, [&] { sub->AddMethodDecl(failed); });
  EXPECT_DEATH(
      sub->AddMethodDecl(boost::make_shared<TForeignMethod>("New", TType::kString, missing)), "");
}

struct TDeclaringLogger : ICoreLogger {
  void Log(int, const std::string&) override {
    std::exchange(declare, [] {})();
  }
  std::function<void()> declare;
};

TEST_F(TForeignDeclTest, WhatTheLoggerDeclaresMeanwhileStays) {
  const auto logger = boost::make_shared<TDeclaringLogger>();
  TRootObject::SetCoreLogger(logger);
  TPropertyDecl property;
  logger->declare = [&] { property = DeclareProperty(sub, "New", ""); };
  NewPropertyDecl(sub, "New", "", {"Override"})->AddToClass({});
  EXPECT_EQ(sub->GetPropertyDecl("New", {}), property);
  const auto method = sub->AllocateMethodDecl("New", TType::kString, {});
  logger->declare = [&] { method->AddToClass({}); };
  const auto late = sub->AllocateMethodDecl("New", TType::kString, {});
  Qualify(*late, "Override");
  late->AddToClass({});
  EXPECT_EQ(sub->GetMethodDecl("New", {}), method);
}

/// A class of another making, as far as it acts when it is asked for its superclasses.
struct TActingClass : TInmemClass {
  using TInmemClass::TInmemClass;
  using TInmemClass::operator=;
  TActingClass& operator=(const TActingClass&) { return *this; }

  bool IsSubclassOf(boost::shared_ptr<const ICIMClass> other, TCIMContext) const override {
    const auto acting = act;
    acting();
    return TInmemClass::IsSubclassOf(other, {});
  }

  std::function<void()> act = [] {};
};

/// An association that refers to an acting class and, behind that, to another.
class TJoiningTest : public TRedefinitionTest {
 protected:
  TJoiningTest() {
    Qualify(*link, "Association");
    Refer(link);
  }

  void Refer(const TClass& from) {
    DeclareProperty(from, "Id", "x", {"Key"});
    for (const auto& [name, to] : {std::pair<const char*, TClass>{"A", acting}, {"B", end}}) {
      DeclareProperty(from, name, 1U)->SetDefaultValue(TCIMValue::NullReference(to), {});
    }
  }

  static TNames AssociationsOf(const TClass& cimClass) {
    return NamesOf(
        [&](const TNamer& note) { cimClass->EnumerateAssociationClasses(note, "", "", {}); });
  }

  static TNames SubClassesOf(const TClass& cimClass) {
    return NamesOf([&](const TNamer& note) { cimClass->EnumerateSubClasses(note, false, {}); });
  }

  TClass root = space->GetClass("", {});
  boost::shared_ptr<TActingClass> acting = boost::make_shared<TActingClass>(
      boost::dynamic_pointer_cast<TInmemNamespace>(space), "Acting", nullptr);
  TClass end = DefineClass("End");
  TClass link = NewClass("Link");
};

TEST_F(TJoiningTest, AClassStaysBesideOneThatIsAddedMeanwhile) {
  acting->act = [&] { acting->act = [] {}, DefineClass("Late"); };
  link->AddToNamespace({});
  EXPECT_EQ(SubClassesOf(root), (TNames{"End", "Link", "Late"}));
}

TEST_F(TJoiningTest, AFailureComesAfterWhatWasDone) {
  acting->act = [] { throw TVYRException(7); };
  EXPECT_EQ(Try([&] { link->AddToNamespace({}); }), TOutcome::Quiet(7));
  EXPECT_EQ(SubClassesOf(root), (TNames{"End", "Link"}));
  EXPECT_EQ(space->GetClass("Link", {}), link);
  EXPECT_EQ(Try([&] { link->RemoveFromNamespace({}); }), TOutcome::Quiet(7));
  EXPECT_EQ(SubClassesOf(root), TNames{"End"});
}

TEST_F(TJoiningTest, OnlyAssociationsLookAtTheirReferences) {
  acting->act = [] { FAIL(); };
  const TClass plain = NewClass("Plain");
  Refer(plain);
  plain->AddToNamespace({});
  plain->RemoveFromNamespace({});
  EXPECT_EQ(AssociationsOf(end), TNames{});
}

TEST_F(TJoiningTest, ReferencesAreThoseOfTheTimeWhenEachIsDue) {
  const TClass late[] = {DefineClass("Late"), DefineClass("Later"), DefineClass("Latest")};
  const TClass twin = DefineClass("Acting");
  acting->act = [&] {
    acting->act = [] {};
    link->RemovePropertyDecl(link->GetPropertyDecl("B", {}));
    for (const TClass& to : late) {
      DeclareProperty(link, "A" + to->GetName({}), TCIMValue::NullReference(to));
    }
    DeclareProperty(link, "Z", TCIMValue::NullReference(twin));
  };
  link->AddToNamespace({});
  for (const TClass& to : late) EXPECT_EQ(AssociationsOf(to), TNames{"Link"});
  EXPECT_EQ(AssociationsOf(acting), TNames{}) << "left to the twin, and the other way round";
  EXPECT_EQ(AssociationsOf(end), TNames{});
  link->RemoveFromNamespace({});
  EXPECT_EQ(AssociationsOf(late[0]), TNames{});
}

TEST_F(TJoiningTest, AClassReplacedOnTheWayUpNoLongerLeadsThere) {
  TClass middle = NewClass("Middle", end);
  const TClass replacement = NewClass("Middle", end);
  const TClass low = NewClass("Low", middle);
  middle->AddToNamespace({}), low->AddToNamespace({});
  middle.reset();
  Qualify(*replacement, "Association");
  for (const TClass& to : {end, low}) {
    DeclareProperty(replacement, to->GetName({}), TCIMValue::NullReference(to));
  }
  replacement->AddToNamespace({});
  EXPECT_EQ(low->GetSuperClass({}), nullptr);
  EXPECT_EQ(AssociationsOf(end), TNames{"Middle"});
  EXPECT_EQ(AssociationsOf(low), TNames{"Middle"});

  EXPECT_EQ(NewClass("Low"), low);
  EXPECT_EQ(low->GetSuperClass({}), root) << "what is allocated again comes under the root";
  EXPECT_EQ(SubClassesOf(replacement), TNames{"Low"}) << "which the others are not told";
  NewInstance(low);
  DeclareProperty(root, "New", "");
  EXPECT_EQ(NewInstance(NewClass("Low"))->GetProperty("New", {})->ToString(), "");
}

TEST_F(TJoiningTest, AMissingSuperclassIsNoticedLast) {
  const struct {
    const char* name = nullptr;
    bool hasKey = false;
    TOutcome outcome;
  } rows[] = {
      {"a-b", false, TOutcome::Logged(7, 3, "Inmem: Class a-b has no keys")},
      {"a-b", true, InvalidName("a-b")},
      {"END", true, TOutcome::Logged(16, 3, "Inmem: TInmemNamespace: class END already defined")},
  };
  for (const auto& row : rows) {
    space = NewNamespace(false);
    const TClass orphan = NewClass(row.name, NewClass("Gone"));
    DefineClass("End");
    if (row.hasKey) DeclareProperty(orphan, "Id", "", {"Key"});
    EXPECT_EQ(Try([&] { orphan->AddToNamespace({}); }), row.outcome);
  }
  const TClass orphan = NewClass("Orphan", NewClass("Gone"));
  DeclareProperty(orphan, "Id", "", {"Key"});
  EXPECT_DEATH(orphan->AddToNamespace({}), "");
}

TEST_F(TJoiningTest, ARedefinitionTakesThePlaceOfTheVeryName) {
  const TClass twin = NewClass("TWIN");
  const TClass heir = NewClass("Twin");
  const TClass old = DefineClass("Twin");
  DefineClass("First", old), DefineClass("Second", old);
  for (const TClass& added : {twin, heir}) {
    DeclareProperty(added, "Id", "", {"Key"});
    added->AddToNamespace({});
  }
  EXPECT_EQ(SubClassesOf(root), (TNames{"End", "TWIN", "Twin"}));
  DefineClass("Third", heir);
  EXPECT_EQ(SubClassesOf(heir), (TNames{"First", "Second", "Third"}));
  EXPECT_EQ(SubClassesOf(old), (TNames{"First", "Second"}));
}

}  // namespace
}  // namespace NZELVYR20

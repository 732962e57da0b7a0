#include <set>

#include "InMemory.h"
#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemMethodDecl.h"
#include "TInmemParameterDecl.h"
#include "TInmemQualifier.h"
#include "TOSSpecific.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What the random operations do not reach.
class TInmemElementsTest : public TRepositoryTest {
 protected:
  /// What is assigned, which is the other one, keeps its name and is what the assignment returns.
  template <class TPointer>
  static void ExpectNoAssignment(const TPointer& element, const TPointer& other) {
    EXPECT_EQ(&(*element = *other), element.get());
    EXPECT_NE(element->GetName({}), other->GetName({}));
  }

  TClass port = DefineClass("Port");
};

TEST_F(TInmemElementsTest, AssignmentCopiesNothing) {
  const auto method = port->AllocateMethodDecl("A", TType::kUInt8, {});
  ExpectNoAssignment(port, NewClass("Other"));
  ExpectNoAssignment(port->AllocatePropertyDecl("A", 1U, {}),
                     port->AllocatePropertyDecl("B", "", {}));
  ExpectNoAssignment(method, port->AllocateMethodDecl("B", TType::kUInt8, {}));
  ExpectNoAssignment(method->AllocateParameterDecl("A", TType::kUInt8, {}),
                     method->AllocateParameterDecl("B", TType::kUInt8, {}));
  const auto a = NewQualifier(space, *port, "A", true);
  const auto b = NewQualifier(space, *port, "B", 1U);
  ExpectNoAssignment(a, b);
  ExpectNoAssignment(boost::const_pointer_cast<ICIMQualifierDecl>(a->GetDeclaration({})),
                     boost::const_pointer_cast<ICIMQualifierDecl>(b->GetDeclaration({})));
  const auto one = NewInstance(port, {{"Id", "one"}});
  *one = *NewInstance(port, {{"Id", "two"}});
  one->ModifyInstance(NewInstance(port, {{"Id", "two"}}), {});
  EXPECT_EQ(one->GetProperty("Id", {})->ToString(), "one");
}

TEST_F(TInmemElementsTest, ElementsCompareByTheirNames) {
  const auto expect = [](const auto& make) {
    const auto a = make("aB");
    for (const auto& same : {a, make("Ab")}) {
      EXPECT_TRUE(*a == *same && *same == *a && !(*a < *same) && !(*same < *a));
    }
    const auto b = make("AC");
    EXPECT_TRUE(!(*a == *b) && *a < *b && !(*b < *a));
  };
  const auto method = port->AllocateMethodDecl("Reset", TType::kString, {});
  const auto qualifier = [&](const char* name) { return NewQualifier(space, *port, name, true); };
  expect([&](auto name) { return port->AllocatePropertyDecl(name, "", {}); });
  expect([&](auto name) { return port->AllocateMethodDecl(name, TType::kString, {}); });
  expect([&](auto name) { return method->AllocateParameterDecl(name, TType::kString, {}); });
  expect(qualifier);
  expect([&](auto name) {
    return boost::const_pointer_cast<ICIMQualifierDecl>(qualifier(name)->GetDeclaration({}));
  });
  const auto upper = NewClass("AB");
  const auto lower = NewClass("aB");
  EXPECT_TRUE(*upper == *NewClass("AB") && !(*upper == *lower) && *upper < *lower);
  EXPECT_FALSE(*lower < *upper || *upper < *NewClass("AB"));
}

TEST_F(TInmemElementsTest, InstancesCompareByTheirClassesAndPropertiesByDeclarationAndValue) {
  const auto a = AddInstance(port, "a");
  const auto b = AddInstance(port, "b");
  const auto other = AddInstance(DefineClass("Other"), "a");
  EXPECT_TRUE(*a == *b && !(*a < *b) && !(*a == *other) && (*a < *other) != (*other < *a));
  const auto idOf = [](const TInstance& instance) { return instance->GetProperty("Id", {}); };
  EXPECT_TRUE(*idOf(a) == *idOf(a) && !(*idOf(a) == *idOf(b)) && *idOf(a) < *idOf(b));
  EXPECT_FALSE(*idOf(a) < *idOf(a) || *idOf(b) < *idOf(a) || *idOf(a) == *idOf(other));
  EXPECT_NE(*idOf(a) < *idOf(other), *idOf(other) < *idOf(a));
  EXPECT_NE(*idOf(b) < *idOf(other), *idOf(other) < *idOf(b));
  const auto unset = idOf(NewInstance(port));  // its declaration decides before its value
  EXPECT_TRUE(!(*unset == *idOf(other)) && (*unset < *idOf(other)) != (*idOf(other) < *unset));
}

TEST_F(TInmemElementsTest, SomeOperationsDoNothing) {
  const TClass other = NewClass("Other");
  port->ModifyClass(other, {});
  EXPECT_EQ(port->GetName({}), "Port");
  TCIMContext parameters{{"Force", TCIMValue(true)}};
  EXPECT_EQ(port->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(NewInstance(port)->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(parameters, (TCIMContext{{"Force", TCIMValue(true)}}));
  EXPECT_EQ(Try([&] { port->GetProperty("Id", {}); }), Quiet(15));
  EXPECT_EQ(Try([&] { port->SetPropertyValue("Id", TCIMValue("1"), {}); }), Quiet(15));
  const boost::shared_ptr<const ICIMPropertyDecl> id = port->GetPropertyDecl("Id", {});
  const TInmemPropertyDecl copy(boost::shared_ptr<const TInmemClass>(), id);
  EXPECT_EQ(copy.GetName({}) + copy.GetDefaultValue({}).ToString(10), "");
}

TEST_F(TInmemElementsTest, WhatIsTakenOutTwiceIsMissed) {
  const auto method = boost::dynamic_pointer_cast<TInmemMethodDecl>(
      port->AllocateMethodDecl("Reset", TType::kUInt32, {}));
  const auto parameter = boost::dynamic_pointer_cast<TInmemParameterDecl>(
      method->AllocateParameterDecl("COUNT", TType::kUInt8Array, {}));
  method->AddParameterDecl(parameter);
  port->AddAssociationClass(port), port->AddAssociationClass(port);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { port->RemoveAssociationClass(port); }), Quiet(status));
    EXPECT_EQ(Try([&] { method->RemoveParameterDecl(parameter); }), Quiet(status));
  }
}

TEST_F(TInmemElementsTest, AQualifierHasItsValuesTypeAndItsDeclarationAnother) {
  const auto units = space->AllocateQualifierDecl("Units", "V", ICIMQualifierDecl::kAny, {}, {});
  const auto attached = boost::make_shared<TInmemQualifier>(port, units, TCIMValue(7));
  EXPECT_EQ(attached->GetType({}), TType::kSInt32);
  units->SetDefaultValue(TCIMValue::Null(TType::kUInt8Array), {});
  EXPECT_EQ(units->GetType({}), TType::kUInt8Array);
  const boost::shared_ptr<const ICIMQualifier> source(attached);
  for (const bool isPropagated : {true, false}) {
    attached->SetPropagated(isPropagated);
    EXPECT_EQ(TInmemQualifier(port, source).GetPropagated({}), isPropagated);
  }
}

TEST_F(TInmemElementsTest, InstancesValidateWhatTheirFlagsAskFor) {
  const auto link = DefineAssociation("Link", {{"From", port}});
  const auto lost = RefTo(NewInstance(port, {{"Id", "b"}}));
  for (const auto& [flags, status] : {std::pair{0, 0}, {1, 18}, {2, 15}, {3, 18}}) {
    const auto instance = TInmemInstance::Make(InMemory<TInmemClass>(link), flags);
    instance->SetPropertyValue("Id", TCIMValue::Null(TType::kString), {});
    instance->SetPropertyValue("From", lost, {});
    const std::string outcome = Try([&] { instance->Validate({}); });
    EXPECT_EQ(outcome.substr(0, outcome.find('\n')), Quiet(status)) << flags;
  }
}

TEST_F(TInmemElementsTest, AHeldPropertyIsTheSameToAllAndOutlastsItsInstance) {
  DeclareProperty(port, "Slot", 1U);
  auto instance = NewInstance(port, {{"Id", "a"}});
  std::set<boost::shared_ptr<ICIMProperty>> held;
  for (const char* name : {"Slot", "Id", "ID"}) held.insert(instance->GetProperty(name, {}));
  EXPECT_EQ(held.size(), 2U);
  auto slot = instance->GetProperty("Slot", {});
  held.erase(slot);
  const boost::weak_ptr<ICIMInstance> watched = instance;
  instance.reset();
  EXPECT_TRUE(watched.expired());
  slot->SetValue(2U, {});
  EXPECT_EQ(slot->ToString(), "2");
  slot.reset();  // in whatever order they go
  EXPECT_EQ((*held.begin())->ToString(), "a");
  EXPECT_EQ((*held.begin())->GetDeclaration({})->GetClass({}), port);
}

TEST_F(TInmemElementsTest, AWalkGoesOnAfterWhatItTakesOut) {
  TNames ids;
  TNames names;
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
    AddInstance(port, name);
    DeclareProperty(port, name, 1U);
  }
  const auto takeOut = [&](const TInstance& instance) {
    ids.push_back(instance->GetProperty("Id", {})->ToString());
    instance->Delete({});
    if (ids.size() == 1) AddInstance(port, "z");
    port->EnumerateInstances([](const TInstance&) { return true; }, false, {});
    return true;
  };
  port->EnumerateInstances(takeOut, false, {});
  const auto exchange = [&](const TPropertyDecl& declaration) {
    names.push_back(declaration->GetName({}));
    port->RemovePropertyDecl(declaration);
    DeclareProperty(port, "Later" + names.back(), 1U);
    return true;
  };
  port->EnumeratePropertyDecls(exchange, {});
  EXPECT_EQ(ids, (TNames{"a", "b", "c", "d", "e", "f", "g", "h"}));
  ids.push_back("Id");
  EXPECT_EQ(names, ids);
}

TEST_F(TInmemElementsTest, AWalkHoldsWhatIsReplacedInItsTurn) {
  DeclareProperty(port, "PORTTYPE", 1U, {"Key"});
  const boost::weak_ptr<ICIMPropertyDecl> replaced = port->GetPropertyDecl("PORTTYPE", {});
  const auto replace = [&](const std::string* name) {
    DeclareProperty(port, "PortType", 1U);
    EXPECT_FALSE(replaced.expired());
    EXPECT_EQ(*name, "PORTTYPE");
    return false;
  };
  port->EnumerateKeyNames([&](const std::string* name) { return *name == "Id" || replace(name); },
                          {});
  EXPECT_TRUE(replaced.expired());
}

TEST_F(TInmemElementsTest, AnInstanceIsStampedWithTheTimeOfItsMaking) {
  DeclareProperty(port, "dateTimeOFcollection", TCIMValue::Null(TType::kDateTime));
  const TCIMValue before(TOSSpecific::GetLocalTime());
  const auto instance = NewInstance(port);
  const TCIMValue after(TOSSpecific::GetLocalTime());
  const TCIMValue& stamp = instance->GetProperty("DateTimeOfCollection", {})->GetValue({});
  EXPECT_FALSE(stamp.IsNull() || stamp < before || after < stamp) << stamp.ToString(10);
}

TEST_F(TInmemElementsTest, StepsOfAWalkPassOtherFailuresAndAnswerWhetherToGoOn) {
  const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
  const auto l = AddInstance(port, "l");
  const auto from = boost::static_pointer_cast<TInmemInstance>(l);
  const auto one = boost::static_pointer_cast<TInmemInstance>(
      PutInstance(link, {{"From", RefTo(l)}, {"To", RefTo(AddInstance(port, "r"))}}));
  for (const int status : {0, 7}) {
    std::string found;
    const TCIMInstanceCallback note = [&, status](const TInstance& instance) {
      found += instance->GetProperty("Id", {})->ToString();
      if (status != 0) throw TVYRException(status);
      return false;
    };
    const std::pair<std::function<bool()>, bool> steps[] = {
        {[&] { return from->ExamineCandidate(note, port, "", one); }, false},
        {[&] { return from->ExamineCandidateClassInstance(note, one); }, true},
        {[&] { return from->ExamineCandidateClassInstanceWithRole(note, "From", one); }, true},
        {[&] { return from->ExamineCandidateWithResultRole(note, port, "To", one); }, true}};
    for (const auto& [step, goesOn] : steps) {
      EXPECT_EQ(Try([&, &go = step, wanted = goesOn] { EXPECT_EQ(go(), wanted); }), Quiet(status));
    }
    EXPECT_EQ(found, "r11r");
  }
  EXPECT_TRUE(from->ExamineCandidate({}, DefineClass("Card"), "", one));
}

}  // namespace
}  // namespace NZELVYR20

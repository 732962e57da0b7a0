#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

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

/// An association that refers to an acting class and, after that, to another.
class TJoiningTest : public TRedefinitionTest {
 protected:
  TJoiningTest() {
    Qualify(*link, "Association");
    for (const auto& [name, to] : {std::pair<const char*, TClass>{"A", acting}, {"B", end}}) {
      DeclareProperty(link, name, TCIMValue::NullReference(to));
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
  TClass link = MakeClass(space, "Link", "x");
};

TEST_F(TJoiningTest, AClassStaysBesideOneThatIsAddedMeanwhile) {
  acting->act = [&] { acting->act = [] {}, DefineClass("Late"); };
  link->AddToNamespace({});
  EXPECT_EQ(SubClassesOf(root), (TNames{"End", "Link", "Late"}));
}

TEST_F(TJoiningTest, AFailureComesAfterWhatWasDone) {
  acting->act = [] { throw TVYRException(7); };
  EXPECT_EQ(Try([&] { link->AddToNamespace({}); }), Quiet(7));
  EXPECT_EQ(SubClassesOf(root), (TNames{"End", "Link"}));
  EXPECT_EQ(space->GetClass("Link", {}), link);
  EXPECT_EQ(Try([&] { link->RemoveFromNamespace({}); }), Quiet(7));
  EXPECT_EQ(SubClassesOf(root), TNames{"End"});
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

TEST_F(TJoiningTest, ReferencesMayGoWhileTheirClassesAreAsked) {
  DefineClass("Acting");
  link->AddToNamespace({});
  acting->act = [&] {
    acting->act = [] {};
    for (const char* name : {"A", "B"}) link->RemovePropertyDecl(link->GetPropertyDecl(name, {}));
  };
  const auto enumerate = [&](const TNamer& note) {
    end->EnumerateAssociatedClasses(note, "", "Acting", "", "", {});
  };
  EXPECT_EQ(NamesOf(enumerate), TNames{"Acting"});
}

TEST_F(TJoiningTest, WhatIsSetStaysWhileAClassIsAsked) {
  for (const bool byProperty : {true, false}) {
    auto instance = NewInstance(link);
    auto property = byProperty ? instance->GetProperty("A", {}) : nullptr;
    const boost::weak_ptr<const void> watched =
        byProperty ? boost::weak_ptr<const void>(property) : instance;
    acting->act = [&] {
      property.reset(), instance.reset();
      EXPECT_FALSE(watched.expired());
    };
    const TCIMValue value = TCIMValue::NullReference(acting);
    byProperty ? property->SetValue(value, {}) : instance->SetPropertyValue("A", value, {});
    EXPECT_TRUE(watched.expired());
  }
}

TEST_F(TJoiningTest, AMissingSuperclassIsNoticedLast) {
  const auto orphan = [this](const char* name) {
    auto made = NewClass(name, NewClass("Gone"));
    DeclareProperty(made, "Id", "", {"Key"});
    return made;
  };
  const TClass misnamed = orphan("a-b");
  EXPECT_EQ(Try([&] { misnamed->AddToNamespace({}); }), InvalidName("a-b"));
  EXPECT_DEATH(orphan("Orphan")->AddToNamespace({}), "");
}

}  // namespace
}  // namespace NZELVYR20

#include <boost/weak_ptr.hpp>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

class TLifetimeTest : public TRedefinitionTest {
 protected:
  /// Remembers an element without holding it.
  template <class TPointer>
  TPointer Watch(const TPointer& element, const std::string& description = "it") {
    watched_.emplace_back(description, element);
    return element;
  }

  TNames GetSurvivors() {
    TNames survivors;
    for (const auto& [description, element] : watched_) {
      if (!element.expired()) survivors.push_back(description);
    }
    return survivors;
  }

  /// An association with a reference to itself or the given class, and an instance, which the
  /// class holds; all watched. The class is not added.
  TClass NewAssociation(const std::string& name, const TClass& target = {}) {
    auto cimClass = Watch(NewClass(name), name);
    Qualify(*cimClass, "Association");
    DeclareProperty(cimClass, "Id", TCIMValue("x"), {"Key"});
    const auto end = TCIMValue::NullReference(target ? target : cimClass);
    Watch(DeclareProperty(cimClass, "End", end), "the end of " + name);
    cimClass->AddInstance(Watch(NewInstance(cimClass), "the instance of " + name));
    return cimClass;
  }

 private:
  std::vector<std::pair<std::string, boost::weak_ptr<const void>>> watched_;
};

TEST_F(TLifetimeTest, EverythingGoesWithTheNamespace) {
  {
    const auto added = NewAssociation("Added");
    added->AddToNamespace({});
    const auto self = Watch(NewInstance(added, {{"Id", "y"}}), "an instance that refers to itself");
    self->SetPropertyValue("End", RefTo(self), {});
    added->AddInstance(self);
    Watch(PutInstance(Watch(NewClass("Sub", added), "Sub"), {{"End", RefTo(self)}}),
          "its instance");

    const auto replaced = NewAssociation("Replaced");
    const auto replacement = NewAssociation("Replaced");
    replaced->AddToNamespace({});
    NewAssociation("Heir", replaced)->AddToNamespace({});
    replacement->AddToNamespace({});

    const auto removed = NewAssociation("Removed");
    const auto end = removed->GetPropertyDecl("End", {});
    end->SetDefaultValue(TCIMValue::Array(TType::kReference, {end->GetDefaultValue({})}), {});
    removed->AddToNamespace({});
    removed->RemoveFromNamespace({});

    const auto stripped = NewAssociation("Stripped");
    stripped->RemovePropertyDecl(stripped->GetPropertyDecl("End", {}));

    const auto base = NewAssociation("Base");
    base->AddToNamespace({});
    const auto kept = base->GetPropertyDecl("End", {});
    const auto keeper = Watch(NewClass("Keeper", base), "Keeper");
    kept->SetDefaultValue(TCIMValue::NullReference(keeper), {});
    base->RemovePropertyDecl(kept);
  }
  Watch(space);
  space.reset();
  EXPECT_EQ(GetSurvivors(), TNames{});
}

TEST_F(TLifetimeTest, WhatTheHostHoldsOutlivesTheNamespace) {
  auto port = Watch(DefineClass("Port"));
  DeclareProperty(port, "Speed", TCIMValue(5U));
  auto link = Watch(DefineAssociation("Link", {{"From", port}}));
  auto instance = Watch(PutInstance(port, "a"));
  auto association = Watch(PutInstance(link, {{"From", RefTo(instance)}}));
  auto unset = NewInstance(link);
  space.reset();

  EXPECT_EQ(port->GetNamespace({}), nullptr);
  EXPECT_EQ(PathsOf(port), TNames{});
  EXPECT_EQ(PathOf(*association), "Link.from=\"Port.id=\\\"a\\\"\"");
  EXPECT_EQ(Try([&] { association->Validate({}); }).status, 15);  // nothing resolves any more
  EXPECT_EQ(unset->GetProperty("From", {})->ToString(), "");
  instance->SetPropertyValue("Speed", TCIMValue(6U), {});
  instance->AddToNamespace({});  // must not tie class and instance to each other for good
  association.reset(), unset.reset(), link.reset(), port.reset();
  EXPECT_EQ(instance->GetClass({})->GetName({}), "Port");
  EXPECT_EQ(instance->GetProperty("Speed", {})->ToString(), "6");
  EXPECT_EQ(instance->GetProperty("HealthState", {})->ToString(), "0");
  instance.reset();
  EXPECT_EQ(GetSurvivors(), TNames{});
}

TEST_F(TLifetimeTest, PropertiesKeepTheirDeclarationsAndNoOthers) {
  const auto port = DefineClass("Port");
  const auto early = PutInstance(port, "a");
  auto first = early->GetProperty("speedDuplex", {});
  const auto between = PutInstance(port, "b");
  const auto second = early->GetProperty("speedDuplex", {});
  EXPECT_EQ(second->ToString() + first->ToString() + second->ToString(), "UnknownUnknownUnknown");
  for (int i = 0; i < 3; ++i) Watch(early->GetProperty("speedDuplex", {})->GetDeclaration({}));
  EXPECT_EQ(GetSurvivors().size(), 1U);  // the one that the class declares now
  port->RemovePropertyDecl(port->GetPropertyDecl("speedDuplex", {}));
  EXPECT_EQ(GetSurvivors(), TNames{});
  EXPECT_EQ(between->GetProperty("speedDuplex", {})->ToString(), "Unknown");
  space.reset();
  EXPECT_EQ(second->ToString(), "Unknown");
}

}  // namespace
}  // namespace NZELVYR20

#include <boost/weak_ptr.hpp>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

class TLifetimeTest : public TRedefinitionTest {
 protected:
  /// Remembers an element without holding it.
  template <class TPointer>
  TPointer Watch(const TPointer& element) {
    watched_.emplace_back(element);
    return element;
  }

  /// How many of the watched elements are still there.
  auto CountSurvivors() {
    return std::count_if(watched_.begin(), watched_.end(),
                         [](const auto& element) { return !element.expired(); });
  }

  /// An association with a reference to itself or the given class, and an instance, which the
  /// class holds; all watched. The class is not added.
  TClass NewAssociation(const std::string& name, const TClass& target = {}) {
    auto cimClass = Watch(NewClass(name));
    Qualify(*cimClass, "Association");
    DeclareProperty(cimClass, "Id", TCIMValue("x"), {"Key"});
    const auto end = TCIMValue::NullReference(target ? target : cimClass);
    Watch(DeclareProperty(cimClass, "End", end));
    cimClass->AddInstance(Watch(NewInstance(cimClass)));
    return cimClass;
  }

 private:
  std::vector<boost::weak_ptr<const void>> watched_;
};

TEST_F(TLifetimeTest, EverythingGoesWithTheNamespace) {
  {
    const auto added = NewAssociation("Added");
    added->AddToNamespace({});
    const auto self = Watch(NewInstance(added, {{"Id", "y"}}));
    self->SetPropertyValue("End", RefTo(self), {});
    added->AddInstance(self);
    Watch(PutInstance(Watch(NewClass("Sub", added)), {{"End", RefTo(self)}}));

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

    const auto base = NewAssociation("Base");
    base->AddToNamespace({});
    const auto kept = base->GetPropertyDecl("End", {});
    const auto keeper = Watch(NewClass("Keeper", base));
    kept->SetDefaultValue(TCIMValue::NullReference(keeper), {});
    base->RemovePropertyDecl(kept);
  }
  Watch(space);
  space.reset();
  EXPECT_EQ(CountSurvivors(), 0);
}

/// A qualifier holds its declaration, and either may refer to the very class that it qualifies.
TEST_F(TLifetimeTest, QualifiersLetGoOfTheClassesTheyReferTo) {
  {
    const auto port = Watch(DefineClass("Port"));
    const auto sub = Watch(NewClass("Sub", port));
    const auto toSub = TCIMValue::NullReference(sub);
    const auto property = port->GetPropertyDecl("Id", {});
    const auto method = port->AllocateMethodDecl("Reset", TType::kUInt32, {});
    const auto parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    method->AddToClass({}), parameter->AddToMethod({});
    const std::vector<ICIMNamedElement*> elements{port.get(), sub.get(), property.get(),
                                                  method.get(), parameter.get()};
    for (ICIMNamedElement* element : elements) {
      Qualify(*element, "ByValue", TCIMValue::Array(TType::kReference, {toSub}));
      const auto declaration = NewQualifierDecl("ByDefault", toSub);
      element->AllocateQualifier(declaration, TCIMValue(true), {})->AddToClassOrProperty({});
    }
  }
  Watch(space);
  space.reset();
  EXPECT_EQ(CountSurvivors(), 0);
}

TEST_F(TLifetimeTest, WhatTheHostHoldsOutlivesTheNamespace) {
  auto port = Watch(DefineClass("Port"));
  auto link = Watch(DefineAssociation("Link", {{"From", port}}));
  auto instance = Watch(PutInstance(port, "a"));
  auto association = Watch(PutInstance(link, {{"From", RefTo(instance)}}));
  space.reset();

  EXPECT_EQ(port->GetNamespace({}), nullptr);
  EXPECT_EQ(PathsOf(port), TNames{});
  EXPECT_EQ(PathOf(*association), "Link.from=\"Port.id=\\\"a\\\"\"");
  EXPECT_EQ(Try([&] { association->Validate({}); }).status, 15);  // nothing resolves any more
  EXPECT_EQ(NewInstance(link)->GetProperty("From", {})->ToString(), "");
  instance->AddToNamespace({});  // must not tie class and instance to each other for good
  association.reset(), link.reset(), port.reset();
  EXPECT_EQ(instance->GetClass({})->GetName({}), "Port");
  EXPECT_EQ(instance->GetProperty("HealthState", {})->ToString(), "0");
  instance.reset();
  EXPECT_EQ(CountSurvivors(), 0);
}

}  // namespace
}  // namespace NZELVYR20

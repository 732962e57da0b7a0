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
  auto toPorts = TCIMValue::Array(TType::kReference, {TCIMValue::NullReference(port)});
  DeclareProperty(link, "All", toPorts);
  Qualify(*link, "Ports", toPorts);
  toPorts = TCIMValue();
  auto instance = Watch(PutInstance(port, "a"));
  auto association = Watch(PutInstance(link, {{"From", RefTo(instance)}}));
  space.reset();

  EXPECT_EQ(port->GetNamespace({}), nullptr);
  EXPECT_EQ(PathsOf(port), TNames{});
  EXPECT_EQ(PathOf(*association), "Link.from=\"Port.id=\\\"a\\\"\"");
  EXPECT_EQ(Try([&] { association->Validate({}); }).status, 15);  // nothing resolves any more
  EXPECT_EQ(NewInstance(link)->GetProperty("From", {})->ToString(), "");
  instance->AddToNamespace({});  // must not tie class and instance to each other for good
  association.reset();           // the last that needed the defaults
  EXPECT_EQ(link->GetPropertyDecl("From", {})->GetDefaultValue({}), TCIMValue());
  EXPECT_EQ(NewInstance(link)->GetProperty("From", {})->GetType({}), TType::kReference);
  EXPECT_EQ(NewInstance(link)->GetProperty("All", {})->GetType({}), TType::kReferenceArray);
  EXPECT_TRUE(link->GetPropertyDecl("All", {})->IsArray({}));
  EXPECT_EQ(link->GetQualifier("Ports", {})->GetType({}), TType::kReferenceArray);
  link.reset(), port.reset();
  EXPECT_EQ(instance->GetClass({})->GetName({}), "Port");
  EXPECT_EQ(instance->GetProperty("HealthState", {})->ToString(), "0");
  instance.reset();
  EXPECT_EQ(CountSurvivors(), 0);
}

TEST_F(TLifetimeTest, ADeclarationGoesWithTheLastInstanceThatNeedsIt) {
  const auto port = DefineClass("Port");
  for (const bool isReplaced : {false, true}) {
    Watch(DeclareProperty(port, "PortType", TCIMValue(1)));
    auto instance = NewInstance(port);
    if (isReplaced) {
      DeclareProperty(port, "PortType", "");
    } else {
      port->RemovePropertyDecl(port->GetPropertyDecl("PortType", {}));
    }
    EXPECT_EQ(CountSurvivors(), 1);
    instance.reset();
    EXPECT_EQ(CountSurvivors(), 0);
  }
}

/// An association in one namespace and its subclass in another, to which two inherited references
/// point.
class TTwoNamespacesTest : public TLifetimeTest {
 protected:
  void SetUp() override {
    space = Watch(NewNamespace(true));
    other = Watch(NewNamespace(true));
    base = Watch(NewClass("Base"));
    Qualify(*base, "Association");
    const auto toBase = TCIMValue::NullReference(base);
    end = Watch(DeclareProperty(base, "End", toBase, {"Key"}));
    lost = Watch(DeclareProperty(base, "Lost", toBase));
    sub = Watch(other->AllocateClass("Sub", base, {}));
    sub->AddToNamespace({});
    end->SetDefaultValue(TCIMValue::NullReference(sub), {});
    lost->SetDefaultValue(TCIMValue::NullReference(sub), {});
    mark =
        other->AllocateQualifierDecl("Mark", toBase, ICIMQualifierDecl::kAny, kDefaultFlavor, {});
  }

  boost::shared_ptr<ICIMNamespace> other;
  TClass base, sub;
  TPropertyDecl end, lost;
  boost::shared_ptr<ICIMQualifierDecl> mark;
};

TEST_F(TTwoNamespacesTest, CyclesEndInEitherOrder) {
  for (const bool isBaseFirst : {true, false}) {
    SetUp();
    base->RemovePropertyDecl(lost);
    const auto method = base->AllocateMethodDecl("Reset", TType::kUInt32, {});
    const auto parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    method->AddToClass({}), parameter->AddToMethod({});
    for (ICIMNamedElement* element :
         std::vector<ICIMNamedElement*>{base.get(), end.get(), method.get(), parameter.get()}) {
      element->AllocateQualifier(mark, TCIMValue(true), {})->AddToClassOrProperty({});
    }
    end.reset(), lost.reset(), mark.reset(), sub.reset();
    (isBaseFirst ? space : other).reset();
    NewInstance(base);  // which must not leave anything behind in a class without namespace
    (isBaseFirst ? other : space).reset();
    base.reset();
    EXPECT_EQ(CountSurvivors(), 0);
  }
}

TEST_F(TTwoNamespacesTest, OneGoesWithoutHarmToTheOther) {
  const auto link = other->AllocateClass("Link", {}, {});
  Qualify(*link, "Association");
  DeclareProperty(link, "End", TCIMValue::NullReference(base), {"Key"});
  link->AddToNamespace({});
  const auto shared = base->AllocateQualifier(mark, mark->GetDefaultValue({}), {});
  base->AddQualifier(shared, {}), sub->AddQualifier(shared, {});
  const auto instance = NewInstance(sub);
  sub->RemovePropertyDecl(lost);
  const auto toSub = TCIMValue(NewInstance(sub)->GetReference({}));
  space.reset();

  for (const auto& declaration : {end, lost}) {
    EXPECT_EQ(declaration->GetDefaultValue({}).GetReferencedClass(), sub);
    const std::string name = declaration->GetName({});
    EXPECT_EQ(Try([&] { instance->SetPropertyValue(name, toSub, {}); }), TOutcome::Quiet()) << name;
  }
  EXPECT_EQ(sub->GetQualifier("Mark", {})->GetValue({}).GetReferencedClass(), base);
  EXPECT_EQ(mark->GetDefaultValue({}).GetReferencedClass(), base);
  EXPECT_EQ(Try([&] { link->RemoveFromNamespace({}); }), TOutcome::Quiet());
}

}  // namespace
}  // namespace NZELVYR20

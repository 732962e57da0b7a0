#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// A class of the host's making, as far as that acts when it is asked for its name.
struct THostClass : TInmemClass {
  using TInmemClass::TInmemClass;
  using TInmemClass::operator=;
  THostClass& operator=(const THostClass&) { return *this; }

  const std::string& GetName(TCIMContext) const override { return act(), TInmemClass::GetName({}); }

  std::function<void()> act = [] {};
};

/// What the random operations leave out: namespaces that go before what is in them.
class TLifetimeTest : public TRedefinitionTest {
 protected:
  /// Remembers an element without holding it.
  template <class TPointer>
  TPointer Watch(const TPointer& element) {
    watched_.emplace_back(element);
    return element;
  }

  auto CountSurvivors() {
    return std::count_if(watched_.begin(), watched_.end(),
                         [](const auto& element) { return !element.expired(); });
  }

 private:
  std::vector<boost::weak_ptr<const void>> watched_;
};

/// A qualifier holds its declaration, and either may refer to the very class that has the element.
TEST_F(TLifetimeTest, QualifiersLetGoOfTheClassesTheyReferTo) {
  for (const bool isOfValue : {true, false}) {
    const auto port = Watch(DefineClass("Port"));
    const auto method = port->AllocateMethodDecl("Reset", TType::kUInt32, {});
    const auto parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    const auto property = port->AllocatePropertyDecl("Speed", 1U, {});
    const auto toPort = TCIMValue::NullReference(port);
    const auto declaration = space->AllocateQualifierDecl(
        "To", isOfValue ? TCIMValue(true) : toPort, ICIMQualifierDecl::kAny, kUsualFlavor, {});
    for (ICIMNamedElement* element : std::initializer_list<ICIMNamedElement*>{
             port.get(), method.get(), parameter.get(), property.get()}) {
      element->AllocateQualifier(declaration, isOfValue ? toPort : TCIMValue(true), {})
          ->AddToClassOrProperty({});
    }
    parameter->AddToMethod({}), method->AddToClass({}), property->AddToClass({});
    space = NewNamespace(true);
    EXPECT_EQ(port->GetQualifier("To", {})->GetType({}).GetElementType(),
              isOfValue ? TType::kReference : TType::kBoolean);
  }
  EXPECT_EQ(CountSurvivors(), 0);
}

TEST_F(TLifetimeTest, WhatTheHostHoldsOutlivesTheNamespace) {
  auto port = Watch(DefineClass("Port"));
  auto link = Watch(DefineAssociation("Link", {{"From", port}}));
  auto toPorts = TCIMValue::Array(TType::kReference, {TCIMValue::NullReference(port)});
  DeclareProperty(link, "All", toPorts);
  Qualify(*link, "Ports", toPorts);
  toPorts = TCIMValue();
  auto instance = Watch(AddInstance(port, "a"));
  auto association = Watch(PutInstance(link, {{"From", RefTo(instance)}}));
  // A class of another namespace shows the same declarations.
  auto other = NewNamespace(false);
  auto below = Watch(other->AllocateClass("Below", link, {}));
  space.reset();

  EXPECT_EQ(port->GetNamespace({}), nullptr);
  EXPECT_EQ(NamesOf([&](const TNamer& note) { port->EnumerateInstances(note, false, {}); }),
            TNames{});
  EXPECT_EQ(association->GetReference({}).GetPath(), "Link.id=\"1\"");
  EXPECT_EQ(Try([&] { association->Validate({}); }).substr(0, 9), Quiet(15));
  EXPECT_EQ(NewInstance(link)->GetProperty("From", {})->ToString(), "");
  instance->AddToNamespace({});  // must not tie class and instance to each other for good
  association.reset();
  EXPECT_EQ(link->GetPropertyDecl("From", {})->GetDefaultValue({}).GetReferencedClass(), port);
  other.reset(), below.reset();  // the last that needed the defaults
  EXPECT_EQ(link->GetPropertyDecl("From", {})->GetDefaultValue({}), TCIMValue());
  EXPECT_EQ(NewInstance(link)->GetProperty("From", {})->GetType({}), TType::kReference);
  EXPECT_EQ(NewInstance(link)->GetProperty("All", {})->GetType({}), TType::kReferenceArray);
  EXPECT_TRUE(link->GetPropertyDecl("All", {})->IsArray({}));
  const auto ports = link->GetQualifier("Ports", {});
  EXPECT_TRUE(ports->IsArray({}) && !ports->GetPropagated({}));
  link.reset(), port.reset();
  EXPECT_EQ(instance->GetClass({})->GetName({}), "Port");
  EXPECT_EQ(instance->GetProperty("HealthState", {})->ToString(), "0");
  instance.reset();
  EXPECT_EQ(CountSurvivors(), 0);
}

TEST_F(TLifetimeTest, TheHostMayDropWhatItCalls) {
  const auto port = DefineClass("Port");
  AddInstance(port, "a");
  // With the path to the port goes what is held.
  const auto pathWith = [&](auto& held) {
    TCIMReference path({}, {});
    path.SetClass({port.get(), [&](ICIMClass*) { held.reset(); }});
    path.AddKeyValue("Id", "a");
    return TCIMValue(path);
  };
  auto declaration = space->AllocateQualifierDecl("Q", true, ICIMQualifierDecl::kAny, {}, {});
  auto property = port->AllocatePropertyDecl("P", true, {});
  auto qualifier = NewQualifier(space, *port, "Q", true);
  declaration->SetDefaultValue(pathWith(declaration), {});
  declaration->SetDefaultValue(true, {});
  property->SetDefaultValue(pathWith(property), {});
  property->SetDefaultValue(true, {});
  qualifier->SetValue(pathWith(qualifier), {});
  qualifier->SetValue(true, {});
  EXPECT_FALSE(declaration || property || qualifier);

  PutInstance(DefineAssociation("Link", {{"To", port}}), {{"To", pathWith(space)}});
  space->ClearInstances();
  EXPECT_FALSE(space);

  space = NewNamespace(false);
  const auto named = boost::make_shared<THostClass>(
      boost::static_pointer_cast<TInmemNamespace>(space), "Port", nullptr);
  DefineClass("Port");
  TCIMReference path({}, {});
  path.SetClass(named);
  named->act = [this] { space.reset(); };
  EXPECT_EQ(space->GetInstance(path, {}), nullptr);

  space = NewNamespace(false);
  const auto link = NewClass("Link");
  Qualify(*link, "Association");
  const auto removeTo = [&](ICIMClass*) {
    link->RemovePropertyDecl(link->GetPropertyDecl("To", {}));
  };
  DeclareProperty(link, "To", TCIMValue::NullReference({port.get(), removeTo}));
  space.reset();
  EXPECT_EQ(Try([&] { link->GetPropertyDecl("To", {}); }), Quiet(15));
}

}  // namespace
}  // namespace NZELVYR20

#include <boost/weak_ptr.hpp>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What the random operations do not reach.
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

 private:
  std::vector<boost::weak_ptr<const void>> watched_;
};

/// A qualifier holds its declaration, and either may refer to the very class whose method has the
/// parameter.
TEST_F(TLifetimeTest, QualifiersOfParametersLetGoOfTheClassesTheyReferTo) {
  for (const bool isOfValue : {true, false}) {
    const auto port = Watch(DefineClass("Port"));
    const auto method = port->AllocateMethodDecl("Reset", TType::kUInt32, {});
    const auto parameter = method->AllocateParameterDecl("Force", TType::kBoolean, {});
    const auto toPort = TCIMValue::NullReference(port);
    const auto declaration = NewQualifierDecl("To", isOfValue ? TCIMValue(true) : toPort);
    parameter->AllocateQualifier(declaration, isOfValue ? toPort : TCIMValue(true), {})
        ->AddToClassOrProperty({});
    parameter->AddToMethod({});
    method->AddToClass({});
    space = NewNamespace(true);
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
  auto instance = Watch(PutInstance(port, "a"));
  auto association = Watch(PutInstance(link, {{"From", RefTo(instance)}}));
  space.reset();

  EXPECT_EQ(port->GetNamespace({}), nullptr);
  EXPECT_EQ(NamesOf([&](const TNamer& note) { port->EnumerateInstances(note, false, {}); }),
            TNames{});
  EXPECT_EQ(PathOf(*association), "Link.from=\"Port.id=\\\"a\\\"\"");
  EXPECT_EQ(StatusOf([&] { association->Validate({}); }), 15);  // nothing resolves any more
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

}  // namespace
}  // namespace NZELVYR20

#include "TInmemQualifier.h"

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TElement = boost::shared_ptr<ICIMNamedElement>;
using TMethod = boost::shared_ptr<ICIMMethodDecl>;
using TInmemQualifierSetTest = TRepositoryTest;

constexpr EFlavor kNone = ICIMQualifierDecl::kNoFlavor;
constexpr EFlavor kOverridable = ICIMQualifierDecl::kOverridable;
constexpr EFlavor kToSubclass = ICIMQualifierDecl::kToSubclass;

class TInmemQualifierTest : public TRepositoryTest {
 protected:
  TClass port = NewClass("CIM_Port");
  boost::shared_ptr<ICIMQualifierDecl> units =
      NewQualifierDecl("Units", TCIMValue("V"), kToSubclass);
};

TEST_F(TInmemQualifierTest, FlavorsAreBitsThatStartAsDeclared) {
  const auto qualifier = port->AllocateQualifier(units, TCIMValue(7), {});
  const auto expectBits = [](auto& element) {
    element.SetFlavor(kOverridable, {});
    element.UnsetFlavor(ICIMQualifierDecl::kTranslatable, {});
    EXPECT_EQ(element.GetFlavor({}), kOverridable | kToSubclass);
    element.UnsetFlavor(kOverridable | kToSubclass, {});
    EXPECT_EQ(element.GetFlavor({}), kNone);
  };
  expectBits(*qualifier);
  expectBits(*units);
  EXPECT_EQ(qualifier->GetType({}), TType::kSInt32) << "its value's, not its declaration's";
  EXPECT_FALSE(port->GetQualifier("Units", {})) << "allocating does not attach";
  units->SetDefaultValue(TCIMValue::Null(TType::kUInt8Array), {});
  EXPECT_TRUE(units->GetType({}) == TType::kUInt8Array && units->IsArray({}));
}

TEST_F(TInmemQualifierTest, CopiesCarryThePropagatedMarkThatEveryLocalChangeClears) {
  const auto source = boost::make_shared<TInmemQualifier>(port, units, TCIMValue(7));
  const boost::shared_ptr<const ICIMQualifier> constSource(source);
  const auto expectCleared = [&](const char* description, const auto& change) {
    source->SetPropagated(true);
    EXPECT_TRUE(TInmemQualifier(port, constSource).GetPropagated({}));
    change();
    EXPECT_FALSE(source->GetPropagated({})) << description;
    EXPECT_FALSE(TInmemQualifier(port, constSource).GetPropagated({}));
  };
  expectCleared("the same value", [&] { source->SetValue(TCIMValue(7), {}); });
  expectCleared("a bit that is set", [&] { source->SetFlavor(kToSubclass, {}); });
  expectCleared("a bit that is not", [&] { source->UnsetFlavor(kOverridable, {}); });
}

/// How the four kinds of element differ in what they do with their qualifiers.
const struct {
  const char* description;
  int otherFlavor;  ///< status of an equal value with another flavor
  int miss;         ///< status of a look-up that misses
  int flaggedForm;  ///< status of the look-up with the found flag
  TElement (*make)(const TClass& owner, const TMethod& method);
} kKinds[] = {
    {"class", 0, 0, 0, [](auto& owner, auto&) -> TElement { return owner; }},
    {"property", 28, 15, 0,
     [](auto& owner, auto&) -> TElement { return owner->GetPropertyDecl("Id", {}); }},
    {"method", 28, 15, 1, [](auto&, auto& method) -> TElement { return method; }},
    {"parameter", 28, 0, 1,
     [](auto&, auto& method) -> TElement {
       return method->AllocateParameterDecl("Mode", TType::kString, {});
     }},
};

TEST_F(TInmemQualifierSetTest, AnAttachedQualifierGivesWayOnlyIfOverridable) {
  constexpr int kDependsOnElement = -1;
  const struct {
    const char* description;
    EFlavor attachedFlavor;
    const char* value;
    EFlavor flavor;
    int status;
    bool givesWay;
  } rows[] = {
      {"the same again", kToSubclass, "Volts", kToSubclass, 0, false},
      {"another value", kToSubclass, "Amps", kToSubclass, 28, false},
      {"another flavor", kToSubclass, "Volts", kOverridable, kDependsOnElement, false},
      {"overridable, other value", kOverridable, "Amps", kOverridable, 0, true},
  };
  for (const auto& kind : kKinds) {
    for (const auto& row : rows) {
      SCOPED_TRACE(std::string(kind.description) + ": " + row.description);
      const TClass owner = NewClass("CIM_Port");
      DeclareProperty(owner, "Id", TCIMValue(1));
      const auto element = kind.make(owner, owner->AllocateMethodDecl("Reset", TType::kUInt32, {}));
      const auto present = NewQualifier(*element, "Units", TCIMValue("Volts"), row.attachedFlavor);
      const auto added = NewQualifier(*element, "UNITS", TCIMValue(row.value), row.flavor);
      present->AddToClassOrProperty({});
      EXPECT_EQ(Try([&] { added->AddToClassOrProperty({}); }),
                TOutcome::Quiet(row.status < 0 ? kind.otherFlavor : row.status));
      EXPECT_EQ(element->GetQualifier("units", {}), row.givesWay ? added : present);

      bool isFound = false;
      const auto look = [&](const char* name) { return element->GetQualifier(name, isFound, {}); };
      const TOutcome flaggedForm = TOutcome::Quiet(kind.flaggedForm);
      EXPECT_EQ(Try([&] { EXPECT_TRUE(look("UNITS")); }), flaggedForm);
      EXPECT_EQ(isFound, kind.flaggedForm == 0);
      EXPECT_EQ(Try([&] { EXPECT_FALSE(look("Unit")); }), flaggedForm);
      EXPECT_FALSE(isFound);
      EXPECT_EQ(Try([&] { EXPECT_FALSE(element->GetQualifier("Unit", {})); }),
                TOutcome::Quiet(kind.miss));
    }
  }
}

}  // namespace
}  // namespace NZELVYR20

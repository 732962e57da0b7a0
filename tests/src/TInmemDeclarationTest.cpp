#include "TInmemDeclaration.h"

#include "ICIMParameterDecl.h"
#include "TInmemClass.h"
#include "TInmemParameterDecl.h"
#include "TInmemQualifier.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

constexpr EFlavor kOverridable = ICIMQualifierDecl::kOverridable;
constexpr EFlavor kToSubclass = ICIMQualifierDecl::kToSubclass;

class TInmemDeclarationTest : public TRepositoryTest {
 protected:
  TClass port = DefineClass("CIM_Port");
  boost::shared_ptr<TInmemClass> owner = boost::dynamic_pointer_cast<TInmemClass>(port);
  boost::shared_ptr<TInmemMethodDecl> method =
      boost::make_shared<TInmemMethodDecl>(owner, "Reset", TType::kUInt32);
};

TEST_F(TInmemDeclarationTest, ComparesByNormalizedName) {
  const auto expectIn = [&](const char* description, const auto& make) {
    SCOPED_TRACE(description);
    const auto key = make("Key", TCIMValue(true));
    const auto same = make("KEY", TCIMValue(1));
    const auto first = make("_key", TCIMValue(true));
    const auto invalid = make("9x", TCIMValue(true));
    EXPECT_TRUE(*key == *same && !(*key == *first));
    EXPECT_TRUE(*first < *key && !(*key < *first || *key < *same || *same < *key));
    EXPECT_EQ(Try([&] { EXPECT_FALSE(*key == *invalid); }), InvalidName("9x"));
    EXPECT_EQ(Try([&] { EXPECT_FALSE(*invalid < *key); }), InvalidName("9x"));
    EXPECT_EQ(&(*key = *first), key.get());
    EXPECT_EQ(key->GetName({}), "Key") << "assignment copies nothing";
  };
  using TValue = const TCIMValue&;
  expectIn("properties",
           [&](auto* name, TValue value) { return port->AllocatePropertyDecl(name, value, {}); });
  expectIn("methods", [&](auto* name, TValue value) {
    return port->AllocateMethodDecl(name, value.GetType(), {});
  });
  expectIn("qualifiers",
           [&](auto* name, TValue value) { return NewQualifier(*port, name, value); });
  expectIn("declared", [&](auto* name, TValue value) { return NewQualifierDecl(name, value); });
}

TEST_F(TInmemDeclarationTest, ACopyOfAPropertyHasNothing) {
  const TInmemPropertyDecl copy(boost::shared_ptr<const TInmemClass>(owner),
                                port->GetPropertyDecl("Id", {}));
  EXPECT_EQ(copy.GetName({}), "");
  EXPECT_EQ(copy.GetDefaultValue({}), TCIMValue());
}

TEST_F(TInmemDeclarationTest, AMethodFindsItsParametersByName) {
  const auto count = boost::make_shared<TInmemParameterDecl>(method, "COUNT", TType::kUInt8Array);
  const auto again = boost::make_shared<TInmemParameterDecl>(method, "Count", TType::kString);
  count->AddToMethod({});
  EXPECT_EQ(Try([&] { again->AddToMethod({}); }),
            TOutcome::Logged(
                16, 3, "Inmem: Attempt to add property Count to method Reset: already exists"));
  EXPECT_EQ(method->GetParameterDecl("count", {}), count);
  EXPECT_FALSE(count->IsArray({})) << "it does not look at its type";

  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { method->RemoveParameterDecl(again); }), TOutcome::Quiet(status));
  }
  EXPECT_EQ(Try([&] { method->GetParameterDecl("Count", {}); }), TOutcome::Quiet(15));
}

/// The other elements are those of the random operations.
TEST_F(TInmemDeclarationTest, AParameterTreatsItsQualifiersInItsOwnWay) {
  const auto mode = method->AllocateParameterDecl("Mode", TType::kString, {});
  const auto attach = [&](const char* value, EFlavor flavor) {
    return Try([&] { Qualify(*mode, "Units", value, flavor); });
  };
  EXPECT_EQ(attach("Volts", kToSubclass), TOutcome::Quiet());
  EXPECT_EQ(attach("Volts", kToSubclass), TOutcome::Quiet());
  EXPECT_EQ(attach("Volts", kOverridable), TOutcome::Quiet(28));
  EXPECT_EQ(attach("Amps", kToSubclass), TOutcome::Quiet(28));
  EXPECT_TRUE(mode->GetQualifier("UNITS", {}));
  EXPECT_EQ(Try([&] { EXPECT_FALSE(mode->GetQualifier("Unit", {})); }), TOutcome::Quiet());
  bool isFound = true;
  EXPECT_EQ(Try([&] { mode->GetQualifier("Units", isFound, {}); }), TOutcome::Quiet(1));
}

TEST_F(TInmemDeclarationTest, AQualifierHasItsValuesTypeAndItsDeclarationAnother) {
  const auto units = NewQualifierDecl("Units", TCIMValue("V"), kToSubclass);
  const auto attached = boost::make_shared<TInmemQualifier>(port, units, TCIMValue(7));
  EXPECT_EQ(attached->GetType({}), TType::kSInt32);
  units->SetDefaultValue(TCIMValue::Null(TType::kUInt8Array), {});
  EXPECT_TRUE(units->GetType({}) == TType::kUInt8Array && units->IsArray({}));
  const boost::shared_ptr<const ICIMQualifier> source(attached);
  for (const bool isPropagated : {true, false}) {
    attached->SetPropagated(isPropagated);
    EXPECT_EQ(TInmemQualifier(port, source).GetPropagated({}), isPropagated);
  }
}

}  // namespace
}  // namespace NZELVYR20

#include "TInmemProperty.h"

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TConstDecl = boost::shared_ptr<const ICIMPropertyDecl>;

class TInmemPropertyTest : public TRepositoryTest {
 protected:
  /// A declaration that the test alone holds.
  TConstDecl Declare(const TCIMValue& defaultValue) {
    return NewPropertyDecl(cimClass, "Speed", defaultValue);
  }

  TClass cimClass = NewClass("Thing");
};

TEST_F(TInmemPropertyTest, ChecksTypeAndReferencedClass) {
  const auto port = DefineClass("Port");
  const auto card = DefineClass("Card");
  const auto fast = DefineClass("Fast", port);
  const TCIMValue text("old");
  const auto toPort = TCIMValue::NullReference(port);
  const std::string isCard = "decl references type Port but value references Card";
  const struct {
    const char* description;
    TCIMValue declared, value;
    std::string complaint;
  } rows[] = {
      {"another type", text, 5U, "decl is type string but value is type uint32"},
      {"a null of the type", text, TCIMValue::Null(TType::kString), ""},
      {"a null of no type", text, TCIMValue(), "decl is type string but value is type none"},
      {"a reference to a subclass", toPort, RefTo(NewInstance(fast)), ""},
      {"a reference to another class", toPort, RefTo(NewInstance(card)), isCard},
      {"a null reference to another class", toPort, TCIMValue::NullReference(card), isCard},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const auto declaration = Declare(row.declared);
    TInmemProperty property(declaration);
    const bool isRefused = !row.complaint.empty();
    TOutcome outcome;
    if (isRefused) outcome = {14, {{3, "Inmem: SetValue: " + row.complaint}}};
    EXPECT_EQ(Try([&] { property.SetValue(row.value, {}); }), outcome);
    EXPECT_EQ(Try([&] { TInmemProperty(declaration, row.value); }), outcome);
    EXPECT_EQ(property.GetValue({}), isRefused ? row.declared : row.value);
    EXPECT_EQ(property.IsDefaultValue({}), isRefused);
    EXPECT_EQ(property.GetPropagated({}), isRefused);
    // A previous value may be any null; complaints of others lack the usual beginning.
    const bool isKept = row.value.IsNull() || !isRefused;
    if (!isKept) outcome = {14, {{3, "SetPrevValue: " + row.complaint}}};
    EXPECT_EQ(Try([&] { property.SetPrevValue(row.value); }), isKept ? TOutcome{} : outcome);
    EXPECT_EQ(property.IsPrevValueDifferent(), isKept);
    EXPECT_EQ(property.GetPrevValue(), isKept ? row.value : row.declared);
  }
}

TEST_F(TInmemPropertyTest, RemembersThePreviousValueForGood) {
  const auto declaration = Declare("default");
  TInmemProperty property(declaration, "now");
  EXPECT_EQ(property.GetPrevValue(), TCIMValue("now"));
  property.SetPrevValue();
  EXPECT_EQ(property.GetPrevValue(), TCIMValue());
  property.SetPrevValue("before");
  property.SetPrevValue(property.GetPrevValue());
  property.SetValue(property.GetValue({}), {});
  EXPECT_EQ(Try([&] { property.SetPrevValue(TCIMValue(true)); }).status, 14);
  EXPECT_EQ(property.PrevValueToString() + " " + property.ToString(), "before now");
}

TEST_F(TInmemPropertyTest, CopiesAndCompares) {
  const auto declaration = Declare("b");
  const auto original = boost::make_shared<TInmemProperty>(declaration, "own");
  original->SetPrevValue("before");
  const boost::shared_ptr<const ICIMProperty> source(original);
  TInmemProperty copy(source);
  EXPECT_EQ(copy.GetDeclaration({}), declaration);
  EXPECT_EQ(copy.GetValue({}), TCIMValue("own"));
  EXPECT_FALSE(copy.IsDefaultValue({}) || copy.IsPrevValueDifferent());
  original->SetValue(TCIMValue::Null(TType::kString), {});
  EXPECT_EQ(TInmemProperty(source).GetValue({}), TCIMValue("b"));
  copy = *original;
  static_cast<ICIMProperty&>(copy) = *original;
  EXPECT_EQ(copy.GetValue({}), TCIMValue("own"));

  const auto other = Declare("b");
  TInmemProperty a(declaration, "a");
  TInmemProperty b(declaration, "b");
  TInmemProperty unset(declaration);
  TInmemProperty foreign(other, "a");
  EXPECT_TRUE(a == a && b == unset && !(a == b) && !(a == foreign));
  EXPECT_TRUE(a < b && a < unset && !(b < a) && !(b < unset));
  EXPECT_NE(a < foreign, foreign < a);
}

}  // namespace
}  // namespace NZELVYR20

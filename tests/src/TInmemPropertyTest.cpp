#include "TInmemProperty.h"

#include "TInmemPropertyDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TConstDecl = boost::shared_ptr<const ICIMPropertyDecl>;

TCIMValue Texts(const std::vector<TCIMValue>& texts) {
  return TCIMValue::Array(TType::kString, texts);
}

class TInmemPropertyTest : public TRepositoryTest {
 protected:
  /// A declaration that the test alone holds.
  TPropertyDecl Declare(const TCIMValue& defaultValue) {
    return NewPropertyDecl(cimClass, "Speed", defaultValue);
  }

  TClass cimClass = NewClass("Thing");
};

TEST_F(TInmemPropertyTest, IsMadeUnderTheChecksOfSetting) {
  const auto declaration = Declare("default");
  const std::string complaint = "SetValue: decl is type string but value is type uint32";
  EXPECT_EQ(Try([&] { TInmemProperty(declaration, 5U); }),
            TOutcome::Logged(14, 3, "Inmem: " + complaint));
  TInmemProperty property(declaration, "now");
  EXPECT_EQ(property.GetPrevValue(), TCIMValue("now"));
  property.SetPrevValue("before");
  property.SetPrevValue(property.GetPrevValue());
  property.SetValue(property.GetValue({}), {});
  // A previous value may be any null; complaints of others lack the usual beginning.
  EXPECT_EQ(Try([&] { property.SetPrevValue(5U); }),
            TOutcome::Logged(14, 3, "SetPrev" + complaint.substr(3)));
  EXPECT_EQ(property.PrevValueToString() + " " + property.ToString(), "before now");
  property.SetPrevValue(TCIMValue::Null(TType::kUInt8));
  EXPECT_EQ(property.GetPrevValue().GetType(), TType::kUInt8);
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

TEST_F(TInmemPropertyTest, TablesKeepWhatStoodBeforeAContradiction) {
  const auto declaration = Declare(1U);
  Qualify(*declaration, "ValueMap", Texts({"1", "3..", ".."}));
  Qualify(*declaration, "Values", Texts({"A", "B", "C"}));
  const TInmemProperty property(declaration);
  std::vector<TInmemProperty::TValueMapEntry> table;
  std::string other = "before";
  EXPECT_FALSE(property.BuildValueMapEntryArray(table, other));
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(other, "");
  EXPECT_EQ(property.LookupInTable(7U, table, other), "B");
  EXPECT_EQ(Try([&] { property.LookupInTable(1, table, other); }), TOutcome::Quiet(1));
  EXPECT_EQ(property.ToStringVector(), TNames{"1"}) << "a scalar has no texts there";
}

/// A declaration of another implementation, whose every look-up but that of "NULLDISPLAY" throws
/// the status.
struct TForeignDecl : TInmemDeclaration<ICIMPropertyDecl, TForeignDecl> {
  TForeignDecl(int lookUpStatus, const TCIMValue& defaultValue)
      : TInmemDeclaration("Foreign"), status(lookUpStatus), value(defaultValue) {}

  using TInmemDeclaration::operator=;
  TForeignDecl& operator=(const TForeignDecl&) { return *this; }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext) const override {
    throw TVYRException(name == "NULLDISPLAY" ? nullStatus : status);
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, bool&,
                                                TCIMContext) const override {
    return {};
  }
  void EnumerateQualifiers(const TCIMQualifierCallback&, TCIMContext) const override {}
  void Validate(TCIMContext) override {}
  void AddToClass(TCIMContext) override {}
  void RemoveFromClass(TCIMContext) override {}
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext) const override { return {}; }
  TType GetType(TCIMContext) const override { return value.GetType(); }
  bool IsArray(TCIMContext) const override { return value.IsArray(); }
  const TCIMValue& GetDefaultValue(TCIMContext) const override { return value; }
  void SetDefaultValue(const TCIMValue&, TCIMContext) override {}

  int status;
  int nullStatus = status;
  TCIMValue value;
};

TEST_F(TInmemPropertyTest, OnlyAMissingQualifierIsNoFailureWhenShown) {
  for (const TCIMValue& value : {TCIMValue(5U), TCIMValue("5"), TCIMValue::Null(TType::kUInt8)}) {
    const auto missing = boost::make_shared<TForeignDecl>(15, value);
    EXPECT_EQ(TInmemProperty(missing).ToString(), value.ToString(10));
    const auto failing = boost::make_shared<TForeignDecl>(28, value);
    EXPECT_EQ(Try([&] { TInmemProperty(failing).ToString(); }), TOutcome::Quiet(28));
  }
  const auto nulls = boost::make_shared<TForeignDecl>(28, TCIMValue::Null(TType::kStringArray));
  EXPECT_EQ(Try([&] { TInmemProperty(nulls).ToStringVector(); }), TOutcome::Quiet(28));
  const auto elements = boost::make_shared<TForeignDecl>(28, Texts({"x"}));
  elements->nullStatus = 15;
  EXPECT_EQ(Try([&] { TInmemProperty(elements).ToStringVector(); }), TOutcome::Quiet(28));
}

}  // namespace
}  // namespace NZELVYR20

#include "TInmemProperty.h"

#include <limits>

#include "TForeignDecl.h"
#include "TInmemQualifier.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

TCIMValue Texts(const std::vector<TCIMValue>& texts) {
  return TCIMValue::Array(TType::kString, texts);
}

class TInmemPropertyTest : public TRepositoryTest {
 protected:
  /// A declaration that the test alone holds.
  TPropertyDecl Declare(const TCIMValue& defaultValue) {
    return cimClass->AllocatePropertyDecl("Speed", defaultValue, {});
  }

  static TNames Show(const boost::shared_ptr<const ICIMPropertyDecl>& declaration) {
    const TInmemProperty property(declaration);
    return property.IsArray({}) ? property.ToStringVector() : TNames{property.ToString()};
  }

  TClass cimClass = NewClass("Thing");
};

TEST_F(TInmemPropertyTest, IsMadeUnderTheChecksOfSetting) {
  const auto declaration = Declare("default");
  const std::string complaint = "SetValue: decl is type string but value is type uint32";
  EXPECT_EQ(Try([&] { TInmemProperty(declaration, 5U); }), Logged(14, 3, "Inmem: " + complaint));
  TInmemProperty property(declaration, "now");
  EXPECT_EQ(property.GetPrevValue(), TCIMValue("now"));
  property.SetPrevValue("before");
  property.SetPrevValue(property.GetPrevValue());
  property.SetValue(property.GetValue({}), {});
  // A previous value may be any null; complaints of others lack the usual beginning.
  EXPECT_EQ(Try([&] { property.SetPrevValue(5U); }),
            Logged(14, 3, "SetPrev" + complaint.substr(3)));
  EXPECT_EQ(property.PrevValueToString() + " " + property.ToString(), "before now");
  property.SetPrevValue(TCIMValue::Null(TType::kUInt8));
  EXPECT_EQ(property.GetPrevValue().GetType(), TType::kUInt8);
}

TEST_F(TInmemPropertyTest, CopiesItsDeclarationAndValueAlone) {
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
  TInmemProperty b(declaration, "b");
  TInmemProperty unset(declaration);
  EXPECT_TRUE(b == unset);
  EXPECT_FALSE(b < unset);
}

using TTable = std::vector<TInmemProperty::TValueMapEntry>;

/// The ranges, those that are open without an end.
std::string RangesOf(const TTable& table) {
  std::string ranges;
  for (const auto& [low, high, text] : table) {
    const bool isOpen = high == std::numeric_limits<std::uint64_t>::max();
    ranges += std::to_string(low) + "-" + (isOpen ? "" : std::to_string(high)) + " ";
  }
  return ranges;
}

TEST_F(TInmemPropertyTest, TablesHaveTheRangesOfTheValueMap) {
  const struct {
    const char* description;
    std::vector<TCIMValue> entries;
    const char* ranges;
    bool isUsable = true;
  } rows[] = {
      {"each goes on behind the one before", {"..4", "5", "..9", "..12"}, "0-4 5-5 6-9 10-12 "},
      {"a range closes before the next number", {"2..3", "9", "1.."}, "2-8 9-9 1- "},
      {"one dot is no range", {"7.", "1.500", ".", "8. 9"}, "7-7 1-1 0-0 8-8 "},
      {"blanks", {" 12", "3 . . 9", " 5", "..  9", ". ."}, "12-12 3-4 5-5 6-9 0-0 "},
      {"signs",
       {"-5", "+5", "+7..", "..-1"},
       "18446744073709551611-18446744073709551611 5-5 7- ",
       false},
      {"a sign may open", {"..-1", "20"}, "0-19 20-20 "},
      {"what stood before a contradiction", {"1", "3..", ".."}, "1-1 3- ", false},
  };
  for (const auto& row : rows) {
    const auto declaration = Declare(1U);
    Qualify(*declaration, "ValueMap", Texts(row.entries));
    Qualify(*declaration, "Values", Texts(row.entries));
    TTable table;
    std::string other = "before";
    EXPECT_EQ(TInmemProperty(declaration).BuildValueMapEntryArray(table, other), row.isUsable);
    EXPECT_EQ(RangesOf(table), row.ranges) << row.description;
    EXPECT_EQ(other, "");
  }
}

TEST_F(TInmemPropertyTest, TextsAloneAreNumberedFromZero) {
  const auto declaration = Declare(1U);
  Qualify(*declaration, "Values", Texts({"Off", "On"}));
  const TInmemProperty property(declaration);
  TTable table{{7, 7, "there before"}};
  std::string other;
  EXPECT_TRUE(property.BuildValueMapEntryArray(table, other));
  EXPECT_EQ(RangesOf(table), "7-7 0-0 1-1 ");
  EXPECT_EQ(Try([&] { property.LookupInTable(1, table, other); }), Quiet(1));
  EXPECT_EQ(property.ToString(), "On");
  EXPECT_EQ(property.ToStringVector(), TNames{"1"}) << "a scalar has no texts there";
}

TEST_F(TInmemPropertyTest, OnlyAMissingQualifierIsNoFailureWhenShown) {
  const struct {
    const char* failing;
    TCIMValue value;
    TValues qualifiers;
  } rows[] = {
      {"Values", true, {}},
      {"ValueMap", 5U, {{"Values", Texts({"Off"})}}},
      {"BASE", "5", {}},
      {"BASE", Texts({"x"}), {}},
      {"NULLDISPLAY", TCIMValue::Null(TType::kUInt8), {}},
      {"NULLDISPLAY", TCIMValue::Null(TType::kStringArray), {}},
      {"UNITS", 5U, {}},
      {"DISPLAYFIXEDUNITS", 5U, {{"UNITS", "Bytes"}}},
      {"ABBREVIATEUNITS", 5U, {{"UNITS", "Bytes"}}},
      {"DISPLAYCPUTIME", 5U, {{"UNITS", "Seconds"}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failing);
    const auto own = Declare(row.value);
    for (const auto& [name, value] : row.qualifiers) Qualify(*own, name, value);
    const auto show = [&](const std::string& failing) {
      const TAsk ask = [&](const std::string& name) {
        if (name == failing) throw TForeignFailure(28);
        return own->GetQualifier(name, {});
      };
      return Show(boost::make_shared<TForeignProperty>("Foreign", row.value, ask));
    };
    EXPECT_EQ(show(""), Show(own));
    ExpectPlainFailure(28, [&] { show(row.failing); });
  }
}

TEST_F(TInmemPropertyTest, AQualifierCountsByTheTypeThatItTells) {
  struct TTextQualifier : TInmemQualifier {
    using TInmemQualifier::TInmemQualifier;
    using TInmemQualifier::operator=;
    TType GetType(TCIMContext) const override { return TType::kString; }
  };
  const auto declaration = Declare(255U);
  const TCIMValue base = static_cast<unsigned char>(16);
  declaration->AddQualifier(
      boost::make_shared<TTextQualifier>(declaration, NewQualifierDecl("BASE", base), base), {});
  EXPECT_EQ(TInmemProperty(declaration).ToString(), "255");
}

}  // namespace
}  // namespace NZELVYR20

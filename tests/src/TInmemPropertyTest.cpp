#include "TInmemProperty.h"

#include <limits>
#include <map>

#include "InMemory.h"
#include "TForeignDecl.h"
#include "TInmemPropertyDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

TCIMValue Texts(const std::vector<TCIMValue>& texts) {
  return TCIMValue::Array(TType::kString, texts);
}

class TInmemPropertyTest : public TRepositoryTest {
 protected:
  using TTable = std::vector<TInmemProperty::TValueMapEntry>;

  /// A declaration that the test alone holds.
  TPropertyDecl Declare(const TCIMValue& defaultValue, const TValues& qualifiers = {}) {
    auto declared = cimClass->AllocatePropertyDecl("Speed", defaultValue, {});
    for (const auto& [name, value] : qualifiers) Qualify(*declared, name, value);
    return declared;
  }

  /// The ranges, those that are open without an end.
  static std::string RangesOf(const TTable& table) {
    std::string ranges;
    for (const auto& [low, high, text] : table) {
      const bool isOpen = high == std::numeric_limits<std::uint64_t>::max();
      ranges += std::to_string(low) + "-" + (isOpen ? "" : std::to_string(high)) + " ";
    }
    return ranges;
  }

  const TClass cimClass = NewClass("Thing");
};

TEST_F(TInmemPropertyTest, IsMadeUnderTheChecksOfSetting) {
  const auto declaration = Declare("default");
  const std::string complaint = "Inmem: SetValue: decl is type string but value is type uint32";
  EXPECT_EQ(Try([&] { TInmemProperty(declaration, 5U); }), Logged(14, 3, complaint));
  const auto original = boost::make_shared<TInmemProperty>(declaration, "own");
  original->SetPrevValue("before");
  original->SetPrevValue(original->GetPrevValue());
  original->SetValue(original->GetValue({}), {});
  EXPECT_EQ(original->PrevValueToString() + " " + original->ToString(), "before own");

  const boost::shared_ptr<const ICIMProperty> source(original);
  TInmemProperty copy(source);
  EXPECT_EQ(copy.GetDeclaration({}), declaration);
  EXPECT_EQ(copy.ToString(), "own");
  EXPECT_FALSE(copy.IsDefaultValue({}) || copy.IsPrevValueDifferent());
  original->SetValue(TCIMValue::Null(TType::kString), {});
  EXPECT_EQ(TInmemProperty(source).ToString(), "default");
  copy = *original;
  static_cast<ICIMProperty&>(copy) = *original;
  EXPECT_EQ(copy.ToString(), "own");
}

TEST_F(TInmemPropertyTest, TablesHaveTheRangesOfTheValueMap) {
  const struct {
    const char* description;
    std::vector<TCIMValue> entries;
    const char* ranges;
    bool isUsable = true;
  } rows[] = {
      {"each goes on after the one before", {"..4", "5", "..9", "..12"}, "0-4 5-5 6-9 10-12 "},
      {"a range closes before the next number", {"2..3", "9", "1.."}, "2-8 9-9 1- "},
      {"one dot is no range", {"7.", "1.500", ".", "8. 9"}, "7-7 1-1 0-0 8-8 "},
      {"blanks", {" 12", "3 . . 9", " 5", "..  9", ". ."}, "12-12 3-4 5-5 6-9 0-0 "},
      {"a sign may open", {"..-1", "20"}, "0-19 20-20 "},
      {"what stood before a contradiction", {"+7..", "..-1"}, "7- ", false},
  };
  for (const auto& row : rows) {
    const auto texts = Texts(row.entries);
    const TPropertyDecl declaration = Declare(1U, {{"ValueMap", texts}, {"Values", texts}});
    TTable table;
    std::string other = "before";
    EXPECT_EQ(TInmemProperty(declaration).BuildValueMapEntryArray(table, other), row.isUsable);
    EXPECT_EQ(RangesOf(table) + other, row.ranges) << row.description;
  }
}

TEST_F(TInmemPropertyTest, TextsAloneAreNumberedFromZero) {
  const auto declaration = Declare(1U, {{"Values", Texts({"Off", "On"})}});
  const TInmemProperty property(declaration);
  TTable table{{7, 7, "there before"}};
  std::string other;
  EXPECT_TRUE(property.BuildValueMapEntryArray(table, other));
  EXPECT_EQ(RangesOf(table), "7-7 0-0 1-1 ");
  EXPECT_EQ(Try([&] { property.LookupInTable(1, table, other); }), Quiet(1)) << "it is signed";
  EXPECT_EQ(property.ToStringVector(), TNames{"1"}) << "a scalar has no texts there";
}

TEST_F(TInmemPropertyTest, ShowsWhatTheQualifiersSayNow) {
  const auto declaration = InMemory<TInmemPropertyDecl>(Declare(1U));
  const auto other = Declare(1U);  // a qualifier need not be attached to its own element alone
  enum class EChange { kAttach, kSet, kSetOften, kRemove };
  const struct {
    EChange change;
    const char* name;
    TCIMValue value;
    const char* shown;
  } rows[] = {
      {EChange::kAttach, "Units", "Bytes", "1 Bytes"},
      {EChange::kAttach, "Values", Texts({"Off", "On"}), "On"},
      {EChange::kSet, "Values", Texts({"No", "Yes"}), "Yes"},
      {EChange::kAttach, "ValueMap", Texts({"1", "0"}), "No"},
      {EChange::kSet, "ValueMap", Texts({"0", "1"}), "Yes"},
      {EChange::kSet, "ValueMap", Texts({"0..", ".."}), "1 Bytes"},
      {EChange::kSet, "ValueMap", Texts({"0", nullptr}), "status 14"},
      {EChange::kSet, "ValueMap", Texts({"0"}), "1 Bytes"},
      {EChange::kRemove, "ValueMap", {}, "Yes"},
      {EChange::kSet, "Values", "Yes", "1 Bytes"},
      {EChange::kSetOften, "Values", Texts({"A", "B"}), "B"},
      {EChange::kSet, "Values", Texts({"C", "D"}), "D"},
      {EChange::kAttach, "VALUES", Texts({"Down", "Up"}), "Up"},
      {EChange::kSet, "Values", Texts({"E", "F"}), "Up"},  // of the one that was replaced
      {EChange::kRemove, "Values", {}, "1 Bytes"},
  };
  std::map<std::string, TQualifier> made;
  const TInmemProperty property(declaration);
  EXPECT_EQ(property.ToString(), "1");
  for (const auto& [change, name, value, shown] : rows) {
    if (change == EChange::kAttach) made[name] = NewQualifier(space, *other, name, value);
    if (change == EChange::kAttach) declaration->AddQualifier(made[name], {});
    if (change == EChange::kRemove) declaration->RemoveQualifier(made[name]);
    const int times = change == EChange::kSetOften ? 1 << 16 : change == EChange::kSet ? 1 : 0;
    for (int time = 0; time < times; ++time) made[name]->SetValue(value, {});
    for (const char* time : {"first", "second"}) {
      std::string text;
      const auto outcome = Try([&] { text = property.ToString(); });
      EXPECT_EQ(text.empty() ? outcome : text, shown) << name << ' ' << time;
    }
  }
}

TEST_F(TInmemPropertyTest, OnlyAMissingQualifierIsNoFailureWhenShown) {
  const struct {
    const char* failing;
    TCIMValue value;
    TValues qualifiers = {};
  } rows[] = {
      {"Values", true},
      {"ValueMap", 5U, {{"Values", Texts({"Off"})}}},
      {"BASE", "5"},
      {"BASE", Texts({"x"})},
      {"NULLDISPLAY", TCIMValue::Null(TType::kUInt8)},
      {"NULLDISPLAY", TCIMValue::Null(TType::kStringArray)},
      {"UNITS", 5U},
      {"DISPLAYFIXEDUNITS", 5U, {{"UNITS", "Bytes"}}},
      {"ABBREVIATEUNITS", 5U, {{"UNITS", "Bytes"}}},
      {"DISPLAYCPUTIME", 5U, {{"UNITS", "Seconds"}}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.failing);
    const auto own = Declare(row.value, row.qualifiers);
    const auto show = [&](const boost::shared_ptr<const ICIMPropertyDecl>& declaration) {
      const TInmemProperty property(declaration);
      return property.IsArray({}) ? property.ToStringVector() : TNames{property.ToString()};
    };
    for (const int status : {15, 28}) {
      const TAsk ask = [&](const std::string& name) {
        if (name == row.failing) throw TVYRException(status);
        return own->GetQualifier(name, {});
      };
      const auto foreign = boost::make_shared<TForeignProperty>("Foreign", row.value, ask);
      EXPECT_EQ(Try([&] { EXPECT_EQ(show(foreign), show(own)); }), Quiet(status == 15 ? 0 : 28));
    }
  }
}

}  // namespace
}  // namespace NZELVYR20

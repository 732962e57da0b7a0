#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "TInmemProperty.h"
#include "TInmemPropertyDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TQualifiers = std::vector<std::pair<const char*, TCIMValue>>;

constexpr auto kMaximum = std::numeric_limits<unsigned long long>::max();

TCIMValue U8(unsigned value) { return static_cast<unsigned char>(value); }
TCIMValue U16(unsigned value) { return static_cast<unsigned short>(value); }
TCIMValue U32(unsigned value) { return value; }
TCIMValue U64(unsigned long long value) { return value; }

TCIMValue Texts(const std::vector<const char*>& texts) {
  return TCIMValue::Array(TType::kString, {texts.begin(), texts.end()});
}

class TInmemDisplayTest : public TRepositoryTest {
 protected:
  /// A property without a value of its own: it shows its declaration's default.
  boost::shared_ptr<TInmemProperty> NewProperty(const TCIMValue& value,
                                                const TQualifiers& qualifiers) {
    declaration =
        boost::make_shared<TInmemPropertyDecl>(boost::shared_ptr<TInmemClass>(), "Shown", value);
    for (const auto& [name, setting] : qualifiers) Qualify(*declaration, name, setting);
    return boost::make_shared<TInmemProperty>(declaration);
  }

  boost::shared_ptr<ICIMPropertyDecl> declaration;
};

TEST_F(TInmemDisplayTest, ShowsScalars) {
  const TQualifiers bytes{{"Units", "Bytes"}};
  const TQualifiers bits{{"Units", "Bits"}};
  const TQualifiers bitRate{{"Units", "Bits per Second"}};
  const auto in = [](const char* unit) { return TQualifiers{{"UNITS", unit}}; };
  const auto shortly = [](const char* unit) {
    return TQualifiers{{"Units", unit}, {"AbbreviateUnits", false}};
  };
  const auto fixed = [](const char* unit, const TCIMValue& limit) {
    return TQualifiers{{"Units", unit}, {"DisplayFixedUnits", limit}};
  };
  const auto mapped = [](const TCIMValue& map, const TCIMValue& values) {
    return TQualifiers{{"ValueMap", map}, {"Values", values}};
  };
  const TQualifiers abc{{"Values", Texts({"A", "B", "C"})}};
  const auto mixed = mapped(Texts({"0", "2", "..", "5.."}), Texts({"A", "B", "C", "D"}));
  const auto ranges = mapped(Texts({"1..3", "10"}), Texts({"Low", "Ten"}));
  const auto upTo = mapped(Texts({"..4", "5", "..9", " 12"}), Texts({"a", "b", "c", "d"}));
  const auto odd =
      mapped(Texts({"0x10", "x", "7 . .", "-1"}), Texts({"zero", "none", "up", "top"}));
  const TCIMValue nullU32 = TCIMValue::Null(TType::kUInt32);
  const TCIMValue nullText = TCIMValue::Null(TType::kString);

  const struct {
    const char* description;
    TQualifiers qualifiers;
    TCIMValue value;
    const char* shown;
  } rows[] = {
      {"at the divisor: not scaled", bytes, U32(1024), "1,024 Bytes"},
      {"just above the divisor", bytes, U32(1025), "1 Kilobytes"},
      {"one place behind the point", bytes, U64(1536), "1.5 Kilobytes"},
      {"nothing", bytes, U8(0), "0 Bytes"},
      {"at the second step: not scaled", bytes, U32(1048576), "1,024 Kilobytes"},
      {"beyond peta", bytes, U64(kMaximum), "16,384 Petabytes"},
      {"bytes per second as well", in("Bytes per Second"), U32(2048), "2 Kilobytes per second"},
      {"bit rates scale by 1000", bitRate, U32(1500), "1.5 Kilobits per second"},
      {"bit rate at the divisor", bitRate, U32(1000), "1,000 Bits per second"},
      {"rounded in single precision", bitRate, U32(1050), "1 Kilobits per second"},
      {"rounded up in single precision", bitRate, U32(1051), "1.1 Kilobits per second"},
      {"number lost to single precision", bits, U32(1073741825), "1,024 Megabits"},

      {"starts at mega", in("MegaBytes"), U32(5000), "4.9 Gigabytes"},
      {"starts at tera", in("TeraBytes"), U32(2048), "2 Petabytes"},
      {"starts at peta and stays", in("PetaBytes"), U32(5000), "5,000 Petabytes"},
      {"starts at milli", in("MilliBytes"), U32(2048), "2 Bytes"},
      {"starts at nano", in("NanoBits"), U32(1025), "1 Microbits"},
      {"one prefix is cut off, not two", in("KiloKiloBytes"), U32(5), "5"},
      {"the prefix in other letters is none", in("kiloBytes"), U32(5), "5"},

      {"short", shortly("Bytes"), U32(1536), "1.5 KB"},
      {"bits are never short", shortly("Bits"), U32(2048), "2 KBits"},
      {"short rate of bytes", shortly("Bytes per Second"), U32(2048), "2 KB/s"},
      {"short rate of bits", shortly("MegaBits per Second"), U32(1500), "1.5 Gbps"},
      {"short small prefixes", shortly("MicroBytes"), U32(5), "5 uB"},
      {"short large prefixes", shortly("PetaBytes"), U32(5), "5 PB"},
      {"short milli differs from mega", shortly("MilliBytes"), U32(5), "5 mB"},
      {"a null wish for short units",
       {{"Units", "Bytes"}, {"AbbreviateUnits", TCIMValue::Null(TType::kBoolean)}},
       U32(5),
       "5 Bytes"},

      {"fixed to kilo", fixed("Bytes", "Kilo"), U32(5000000), "4,882.8 Kilobytes"},
      {"fixed to mega", fixed("Bytes", "Mega"), U64(5000000000), "4,768.4 Megabytes"},
      {"fixed to giga", fixed("MegaBytes", "Giga"), U64(4194304000), "4,096,000 Gigabytes"},
      {"fixed below where it starts", fixed("MegaBytes", "Kilo"), U32(5000), "5,000 Megabytes"},
      {"fixed to an unknown prefix", fixed("Bytes", "kilo"), U32(1048577), "1 Megabytes"},
      {"fixed to something else", fixed("Bytes", U8(4)), U32(1048577), "1 Megabytes"},
      {"fixed to null", fixed("Bytes", nullText), U32(1048577), "1 Megabytes"},

      {"seconds", in("Seconds"), U32(90061), "1 days 01:01:01"},
      {"seconds before midnight", in("Seconds"), U32(86399), "0 days 23:59:59"},
      {"milliseconds", in("MilliSeconds"), U32(1500), "0 days 00:00:01.500000"},
      {"milliseconds beyond 64 bits", in("MilliSeconds"), U64(18446744073709552),
       "0 days 00:00:00.000384"},
      {"microseconds", in("MicroSeconds"), U64(86400000001), "1 days 00:00:00.000001"},
      {"nanoseconds", in("NanoSeconds"), U64(90061000001999), "1 days 01:01:01.000001"},
      {"multiples of seconds are not in use", in("KiloSeconds"), U32(5), "0 days 00:00:00"},
      {"processor time is shown alike",
       {{"Units", "Seconds"}, {"DisplayCPUTime", true}},
       U32(61),
       "0 days 00:01:01"},
      {"times are never short", shortly("Seconds"), U32(61), "0 days 00:01:01"},

      {"unit without scale", in("Watts"), U32(1500), "1500"},
      {"prefix without unit", in("Kilo"), U32(1500), "1500"},
      {"unit of another type", {{"Units", U8(5)}}, U32(1500), "1500"},
      {"null unit", {{"Units", nullText}}, U32(1500), "1500"},
      {"signed numbers have no unit", bytes, TCIMValue(-1500), "-1500"},
      {"reals have no unit", bytes, TCIMValue(1500.5), "1500.5"},
      {"base", {{"Base", U8(16)}}, U32(255), "ff"},
      {"base of a signed number", {{"Base", U8(2)}}, TCIMValue(-5), "-101"},
      {"base behind a unit without scale", {{"Units", "Watts"}, {"Base", U8(16)}}, U32(255), "ff"},
      {"units before base", {{"Units", "Bytes"}, {"Base", U8(16)}}, U32(255), "255 Bytes"},
      {"base of another type", {{"Base", U16(16)}}, U32(255), "255"},
      {"null base", {{"Base", TCIMValue::Null(TType::kUInt8)}}, U32(255), "255"},

      {"null", {{"NullDisplay", "n/a"}, {"Units", "Bytes"}}, nullU32, "n/a"},
      {"null without a text", bytes, nullU32, ""},
      {"null with a text of another type", {{"NullDisplay", U8(1)}}, nullU32, ""},

      {"by position", abc, U32(2), "C"},
      {"beyond the positions", abc, U32(3), "3"},
      {"boolean", abc, TCIMValue(true), "B"},
      {"texts before units", {{"Values", Texts({"A"})}, {"Units", "Bytes"}}, U8(0), "A"},
      {"no text: not even a unit",
       {{"Values", Texts({"A"})}, {"Units", "Bytes"}},
       U32(2048),
       "2048"},
      {"signed numbers have no texts", abc, TCIMValue(1), "1"},
      {"texts of another type", {{"Values", "A"}}, U8(0), "0"},
      {"null texts", {{"Values", TCIMValue::Null(TType::kStringArray)}}, U8(0), "0"},
      {"map of another type", {{"ValueMap", "5"}, {"Values", Texts({"A"})}}, U8(0), "A"},
      {"map of another length", mapped(Texts({"2"}), Texts({"A", "B"})), U8(0), "0"},
      {"single number", mixed, U32(2), "B"},
      {"any other number", mixed, U32(1), "C"},
      {"open range", mixed, U64(kMaximum), "D"},
      {"range up to the next number", ranges, U32(9), "Low"},
      {"number that closes a range", ranges, U32(10), "Ten"},
      {"number without entry", ranges, U32(11), "11"},
      {"up to its number", upTo, U8(4), "a"},
      {"from the entry before it", upTo, U8(6), "c"},
      {"blank before a number", upTo, U8(12), "d"},
      {"no hexadecimal numbers", odd, U8(0), "zero"},
      {"blanks between the dots", odd, U32(1000), "up"},
      {"negative numbers wrap", odd, U64(kMaximum), "top"},
      {"other entry behind an open range", mapped(Texts({"3..", ".."}), Texts({"A", "B"})), U8(3),
       "3"},
      {"upper bound behind an open range", mapped(Texts({"3..", "..9"}), Texts({"A", "B"})), U8(3),
       "3"},
      {"the last other entry counts", mapped(Texts({"..", ".."}), Texts({"A", "B"})), U8(3), "B"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const auto property = NewProperty(row.value, row.qualifiers);
    EXPECT_EQ(property->ToString(), row.shown);
    EXPECT_EQ(property->PrevValueToString(), row.shown);
  }
}

TEST_F(TInmemDisplayTest, ShowsArraysElementByElement) {
  const TQualifiers abc{{"Values", Texts({"A", "B", "C"})}};
  const TCIMValue nullArray = TCIMValue::Null(TType::kUInt32Array);
  const TCIMValue holed = TCIMValue::Array(TType::kUInt32, {9U, TCIMValue::Null(TType::kUInt32)});
  const struct {
    const char* description;
    TQualifiers qualifiers;
    TCIMValue value;
    TNames shown;
  } rows[] = {
      {"texts", abc, TCIMValue::Array(TType::kUInt8, {U8(0), U8(2)}), {"A", "C"}},
      {"units", {{"Units", "Bytes"}}, TCIMValue::Array(TType::kUInt32, {1536U}), {"1.5 Kilobytes"}},
      {"null element", {{"NullDisplay", "n/a"}}, holed, {"9", "n/a"}},
      {"empty", abc, TCIMValue::Array(TType::kUInt8, {}), {}},
      {"null", {{"NullDisplay", "n/a"}}, nullArray, {"n/a"}},
      {"null without a text", abc, nullArray, {}},
      {"a scalar, without its text", abc, U32(2), {"2"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    EXPECT_EQ(NewProperty(row.value, row.qualifiers)->ToStringVector(), row.shown);
  }
}

TEST_F(TInmemDisplayTest, ShowsThePreviousValueByTheSameQualifiers) {
  const auto property = NewProperty(U32(1), {{"Values", Texts({"A", "B"})}, {"NullDisplay", "?"}});
  property->SetPrevValue(U32(0));
  EXPECT_EQ(property->PrevValueToString() + property->ToString(), "AB");
  property->SetPrevValue();
  EXPECT_EQ(property->PrevValueToString(), "?");
}

TEST_F(TInmemDisplayTest, TablesKeepWhatStoodBeforeAContradiction) {
  const auto property = NewProperty(
      U32(1), {{"ValueMap", Texts({"1", "3..", ".."})}, {"Values", Texts({"A", "B", "C"})}});
  std::vector<TInmemProperty::TValueMapEntry> table;
  std::string other = "before";
  EXPECT_FALSE(property->BuildValueMapEntryArray(table, other));
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(other, "");
  EXPECT_EQ(property->LookupInTable(U32(7), table, other), "B");
  EXPECT_EQ(Try([&] { property->LookupInTable(TCIMValue(1), table, other); }), TOutcome::Quiet(1));
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
  TCIMValue::TCIMType GetType(TCIMContext) const override { return value.GetType(); }
  bool IsArray(TCIMContext) const override { return value.IsArray(); }
  const TCIMValue& GetDefaultValue(TCIMContext) const override { return value; }
  void SetDefaultValue(const TCIMValue&, TCIMContext) override {}

  int status;
  int nullStatus = status;
  TCIMValue value;
};

TEST_F(TInmemDisplayTest, OnlyAMissingQualifierIsNoFailure) {
  const TCIMValue nullArray = TCIMValue::Null(TType::kStringArray);
  for (const TCIMValue& value : {U32(5), TCIMValue("5"), TCIMValue::Null(TType::kUInt8)}) {
    const auto missing = boost::make_shared<TForeignDecl>(15, value);
    EXPECT_EQ(TInmemProperty(missing).ToString(), value.ToString(10));
    const auto failing = boost::make_shared<TForeignDecl>(28, value);
    EXPECT_EQ(Try([&] { TInmemProperty(failing).ToString(); }), TOutcome::Quiet(28));
  }
  const auto nulls = boost::make_shared<TForeignDecl>(28, nullArray);
  EXPECT_EQ(Try([&] { TInmemProperty(nulls).ToStringVector(); }), TOutcome::Quiet(28));
  const auto elements = boost::make_shared<TForeignDecl>(28, Texts({"x"}));
  elements->nullStatus = 15;
  EXPECT_EQ(Try([&] { TInmemProperty(elements).ToStringVector(); }), TOutcome::Quiet(28));
}

}  // namespace
}  // namespace NZELVYR20

#include "TCIMValue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "TCIMDateTime.h"
#include "TFakeSchema.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

template <class TContent>
char Accepts(const TCIMValue& value) {
  const int status = StatusOf([&] { static_cast<void>(static_cast<TContent>(value)); });
  EXPECT_TRUE(status == 0 || status == 14) << status;
  return status == 0 ? '1' : '0';
}

/// For each type in order of number, whether the conversion to it accepts the value.
std::string Conversions(const TCIMValue& value) {
  return {Accepts<bool>(value),          Accepts<std::uint8_t>(value),
          Accepts<std::int8_t>(value),   Accepts<std::uint16_t>(value),
          Accepts<std::int16_t>(value),  Accepts<std::uint32_t>(value),
          Accepts<std::int32_t>(value),  Accepts<std::uint64_t>(value),
          Accepts<std::int64_t>(value),  Accepts<float>(value),
          Accepts<double>(value),        Accepts<char16_t>(value),
          Accepts<std::string>(value),   Accepts<TCIMDateTime>(value),
          Accepts<TCIMReference>(value), Accepts<const std::vector<TCIMValue>&>(value)};
}

std::string Word(TType type) {
  std::ostringstream stream;
  stream << type;
  return stream.str();
}

TCIMReference PathTo(const boost::shared_ptr<ICIMClass>& cimClass) {
  TCIMReference path({}, {});
  path.SetClass(cimClass);
  return path;
}

boost::shared_ptr<ICIMClass> MakeClass(const std::string& name) {
  return boost::make_shared<TFakeClass>(name, boost::weak_ptr<ICIMNamespace>());
}

struct TSample {
  const char* word;
  TCIMValue value;
  const char* text;
};

/// A value of every scalar type, in order of number.
std::vector<TSample> Samples() {
  return {{"none", TCIMValue(), ""},
          {"boolean", true, "TRUE"},
          {"uint8", std::uint8_t{65}, "65"},
          {"sint8", std::int8_t{-65}, "-65"},
          {"uint16", std::uint16_t{7}, "7"},
          {"sint16", std::int16_t{-7}, "-7"},
          {"uint32", std::uint32_t{8}, "8"},
          {"sint32", std::int32_t{-8}, "-8"},
          {"uint64", std::uint64_t{9}, "9"},
          {"sint64", std::int64_t{-9}, "-9"},
          {"real32", 1.5F, "1.5"},
          {"real64", -0.1, "-0.1"},
          {"char16", u'\u20AC', "\u20AC"},
          {"string", "text", "text"},
          {"datetime", TCIMDateTime(), "0 days 00:00:00"},
          {"reference", PathTo(MakeClass("A")), "A"}};
}

TEST(TCIMValue, HasATypeATextAndOneConversion) {
  const std::vector<TSample> samples = Samples();
  for (int number = 0; number < 16; ++number) {
    const auto type = static_cast<TType::ECIMType>(number);
    const TSample& sample = samples[number];
    SCOPED_TRACE(sample.word);
    EXPECT_EQ(Word(type), sample.word);
    EXPECT_EQ(Word(TType::ArrayOf(type)), sample.word + std::string("[]"));
    EXPECT_EQ(sample.value.GetType(), type);
    EXPECT_EQ(sample.value.ToString(10), sample.text);
    EXPECT_EQ(sample.value.IsReference(), number == 15);
    std::string expected(16, '0');
    if (number > 0) expected[number - 1] = '1';
    EXPECT_EQ(Conversions(sample.value), expected);

    for (const TType nullType : {TType(type), TType::ArrayOf(type)}) {
      const TCIMValue null = TCIMValue::Null(nullType);
      EXPECT_TRUE(null.IsNull());
      EXPECT_EQ(null.GetType(), nullType);
      EXPECT_EQ(null.IsArray(), nullType.IsArray());
      EXPECT_EQ(null.ToString(10), "");
      EXPECT_EQ(Conversions(null), std::string(16, '0'));
    }
  }
}

template <class TInteger>
std::string Limits(unsigned char base) {
  const TCIMValue low(std::numeric_limits<TInteger>::min());
  const TCIMValue high(std::numeric_limits<TInteger>::max());
  EXPECT_EQ(static_cast<TInteger>(low), std::numeric_limits<TInteger>::min());
  EXPECT_EQ(static_cast<TInteger>(high), std::numeric_limits<TInteger>::max());
  return low.ToString(base) + ' ' + high.ToString(base);
}

TEST(TCIMValue, WritesIntegersInAnyBase) {
  EXPECT_EQ(Limits<std::uint8_t>(2), "0 11111111");
  EXPECT_EQ(Limits<std::int8_t>(16), "-80 7f");
  EXPECT_EQ(Limits<std::uint16_t>(8), "0 177777");
  EXPECT_EQ(Limits<std::int16_t>(10), "-32768 32767");
  EXPECT_EQ(Limits<std::uint32_t>(36), "0 1z141z3");
  EXPECT_EQ(Limits<std::int32_t>(16), "-80000000 7fffffff");
  EXPECT_EQ(Limits<std::uint64_t>(16), "0 ffffffffffffffff");
  EXPECT_EQ(Limits<std::int64_t>(2), "-1" + std::string(63, '0') + ' ' + std::string(63, '1'));
  for (const unsigned char base : {0, 1, 37, 255}) {
    EXPECT_EQ(Limits<std::uint64_t>(base), "0 18446744073709551615") << int{base};
  }
  EXPECT_EQ(static_cast<long>(TCIMValue(-1L)), -1L);
  EXPECT_EQ(static_cast<unsigned long>(TCIMValue(1UL)), 1UL);
  EXPECT_EQ(TCIMValue(1UL).GetType(), sizeof(long) == 8 ? TType::kUInt64 : TType::kUInt32);
}

TEST(TCIMValue, WritesTextForPeople) {
  const struct {
    const char* description;
    TCIMValue value;
    std::string text;
  } rows[] = {
      {"string raw", "a \"b\"\\", "a \"b\"\\"},
      {"string with zero byte", std::string("a\0b", 3), std::string("a\0b", 3)},
      {"null pointer", static_cast<const char*>(nullptr), ""},
      {"single precision keeps to itself", 0.1F, "0.1"},
      {"third of double precision", 1.0 / 3, "0.3333333333333333"},
      {"largest double", std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
      {"smallest double", -std::numeric_limits<double>::denorm_min(), "-5e-324"},
      {"infinity", -std::numeric_limits<float>::infinity(), "-inf"},
      {"negative NaN", -std::numeric_limits<double>::quiet_NaN(), "nan"},
      {"character of one byte", u'A', "A"},
      {"of two", u'\u00E9', "\u00E9"},
      {"half of a surrogate pair", static_cast<char16_t>(0xD800), "\uFFFD"},
      {"array, null first",
       TCIMValue::Array(TType::kString, {TCIMValue::Null(TType::kString), "b"}), "{,b}"},
      {"empty array", TCIMValue::Array(TType::kString, {}), "{}"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.value.ToString(10), row.text) << row.description;
  EXPECT_EQ(TCIMValue::Array(TType::kSInt8, {std::int8_t{-10}}).ToString(16), "{-a}");
}

TEST(TCIMValue, IsStrictlyOrdered) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  std::vector<TCIMValue> types;
  for (const TSample& sample : Samples()) types.push_back(sample.value);
  const std::vector<TCIMValue> within[] = {
      {TCIMValue::Null(TType::kString), "", "A", "AB", "a"},
      {std::int64_t{-2}, std::int64_t{-1}, std::int64_t{0}, std::int64_t{1}},
      {std::uint64_t{1}, ~std::uint64_t{0}},
      {-infinity, -1.0, 0.0, 1.0, infinity, nan},
      {TCIMValue::Array(TType::kReal64, {}), TCIMValue::Array(TType::kReal64, {1.0}),
       TCIMValue::Array(TType::kReal64, {1.0, 2.0}), TCIMValue::Array(TType::kReal64, {nan})},
      {TCIMValue::NullReference(MakeClass("Z")), PathTo(MakeClass("A")), PathTo(MakeClass("B"))},
      types,
  };
  for (const std::vector<TCIMValue>& values : within) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      const TCIMValue copy = values[i];
      EXPECT_TRUE(copy == values[i] && !(copy < values[i])) << values[i].ToString(10);
      for (std::size_t j = i + 1; j < values.size(); ++j) {
        EXPECT_TRUE(values[i] < values[j] && !(values[j] < values[i]) && values[i] != values[j])
            << values[i].ToString(10) << " and " << values[j].ToString(10);
      }
    }
  }
  EXPECT_EQ(TCIMValue(0.0), TCIMValue(-0.0));
}

TEST(TCIMValue, RefusesArraysOfMixedTypes) {
  EXPECT_EQ(StatusOf([] { TCIMValue::Array(TType::kString, {"a", 1}); }), 14);
  EXPECT_EQ(StatusOf([] { TCIMValue::Array(TType::kString, {TCIMValue()}); }), 14);
  EXPECT_EQ(StatusOf([] { TCIMValue::Array(TType::kStringArray, {}); }), 14);
  EXPECT_EQ(StatusOf([] { TCIMValue::Array(TType::kNone, {TCIMValue()}); }), 14);
}

TEST(TCIMValue, SurvivesAssignmentFromItself) {
  TCIMValue value = TCIMValue::Array(TType::kString, {"first", std::string(100, 'x')});
  value = *&value;
  auto& elements = static_cast<std::vector<TCIMValue>&>(value);
  ASSERT_EQ(elements.size(), 2U);
  elements[0] = "changed";
  TCIMValue copy = value;
  value = elements[1];
  EXPECT_EQ(value, TCIMValue(std::string(100, 'x')));
  copy = std::move(static_cast<std::vector<TCIMValue>&>(copy)[0]);
  EXPECT_EQ(copy, TCIMValue("changed"));
}

TEST(TCIMValue, KnowsTheClassItWasMadeFor) {
  const auto narrow = MakeClass("Narrow");
  const auto wide = MakeClass("Wide");
  EXPECT_EQ(TCIMValue(PathTo(narrow)).GetReferencedClass(), narrow);
  EXPECT_EQ(TCIMValue(PathTo(narrow), wide).GetReferencedClass(), wide);
  EXPECT_EQ(TCIMValue(PathTo(narrow), {}).GetReferencedClass(), narrow);
  EXPECT_EQ(TCIMValue::Null(TType::kReference).GetReferencedClass(), nullptr);
  EXPECT_EQ(TCIMValue("Narrow").GetReferencedClass(), nullptr);

  TCIMValue unset;
  unset = TCIMValue::NullReference(wide);
  EXPECT_TRUE(unset.IsNull() && unset.IsReference());
  EXPECT_EQ(unset.GetReferencedClass(), wide);
  EXPECT_EQ(static_cast<TCIMReference>(unset).GetPath(), "Wide");
  EXPECT_EQ(unset.ToString(10), "");
  EXPECT_EQ(unset, TCIMValue::NullReference({}));
}

}  // namespace
}  // namespace NZELVYR20

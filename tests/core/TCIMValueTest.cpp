#include "TCIMValue.h"

#include <cmath>

#include "Paths.h"
#include "TFaults.h"

namespace NZELVYR20 {

TEST(TCIMValue, ChangesNothingAndLeaksNothingWhenAnAssignmentFails) {
  const TCIMReference path = MakePath({}, {{"a key", std::string(50, 'k')}, {"t", TCIMDateTime()}});
  const TCIMValue source = TCIMValue::Array(TType::kReference, {path, path});
  const TCIMValue before = std::string(50, 't');
  TCIMValue target = before;
  ASSERT_EQ(source, TCIMValue(source));  // the paths make and keep their texts here
  const long live = TFaults::CountLiveAllocations();
  int blocks = 0;
  while (target == before) {
    ASSERT_EQ(TFaults::CountLiveAllocations(), live) << "after " << blocks << " blocks";
    TFaults::Arm(TFaults::EKind::kNew, ++blocks);
    ResultOf([&] { return target = source, "done"; });
    TFaults::Disarm();
  }
  EXPECT_GT(blocks, 5);
  EXPECT_EQ(target, source);
  target = before;
  EXPECT_EQ(TFaults::CountLiveAllocations(), live);
}

/// For each content, whether the value converts to it and back (1) or, in the words of the failure,
/// "The type does not match." (T).
template <class... TContents>
static std::string Conversions(const TCIMValue& value) {
  return {ResultOf(
      [&] { return TCIMValue(static_cast<TContents>(value)) == value ? "1" : "changed"; })[0]...};
}

TEST(TCIMValue, HasATypeATextOneConversionAndAPlaceInTheOrder) {
  const TCIMValue nullText = static_cast<const char*>(nullptr);
  const auto texts = [](TValues elements) { return TCIMValue::Array(TType::kString, elements); };
  // By type: values in ascending order, and their texts.
  const std::tuple<const char*, TValues, std::string> rows[] = {
      {"none", {TCIMValue()}, ";"},
      {"boolean", {false, true}, "FALSE;TRUE;"},
      {"uint8", {std::uint8_t{65}, std::uint8_t{255}}, "65;255;"},
      {"sint8", {std::int8_t{-128}, std::int8_t{127}}, "-128;127;"},
      {"uint16", {std::uint16_t{65535}}, "65535;"},
      {"sint16", {std::int16_t{-32768}, std::int16_t{1}}, "-32768;1;"},
      {"uint32", {UINT32_MAX}, "4294967295;"},
      {"sint32", {INT32_MIN, 0}, "-2147483648;0;"},
      {"uint64", {std::uint64_t{1}, UINT64_MAX}, "1;18446744073709551615;"},
      {"sint64", {INT64_MIN, std::int64_t{0}}, "-9223372036854775808;0;"},
      {"real32", {-HUGE_VALF, 0.1F, NAN}, "-inf;0.1;nan;"},
      {"real64", {-5e-324, 0.1 + 0.2, -std::nan("")}, "-5e-324;0.30000000000000004;nan;"},
      {"char16", {u'A', u'\u00E9', u'\u20AC', u'\xD800'}, "A;\u00E9;\u20AC;\uFFFD;"},
      {"string", {nullText, "", "A", "a\"\\"}, ";;A;a\"\\;"},
      {"datetime", {TCIMDateTime()}, "0 days 00:00:00;"},
      {"reference", {TCIMValue::Null(TType::kReference), MakePath(MakeClass("A"))}, ";A;"},
      {"string[]", {texts({}), texts({nullText, "b"}), texts({"a"})}, "{};{,b};{a};"},
  };
  TValues ascending;
  for (const auto& [word, values, expectedTexts] : rows) {
    std::string shown;
    for (const TCIMValue& value : values) {
      const TType type = value.GetType();
      EXPECT_EQ(testing::PrintToString(type), word);
      std::string expected(15, 'T');
      if (!value.IsNull() && !type.IsArray()) expected[type - 1] = '1';
      EXPECT_EQ((Conversions<bool, unsigned char, signed char, unsigned short, short, unsigned, int,
                             unsigned long long, long long, float, double, char16_t, std::string,
                             TCIMDateTime, TCIMReference>(value)),
                expected)
          << word;
      EXPECT_EQ(TCIMValue::Null(type) < value, !value.IsNull());
      shown += value.ToString(10) + ';';
      ascending.push_back(value);
    }
    EXPECT_EQ(shown, expectedTexts);
  }
  for (const TCIMValue& left : ascending) {
    for (const TCIMValue& right : ascending) {
      EXPECT_EQ(left < right, &left < &right) << left.ToString(10) << " < " << right.ToString(10);
      EXPECT_EQ(left == right, &left == &right) << left.ToString(10);
    }
  }
  EXPECT_EQ(TCIMValue(0.0), TCIMValue(-0.0));
}

TEST(TCIMValue, WritesIntegersInAnyBaseAndRefusesMixedArrays) {
  const TCIMValue array = TCIMValue::Array(TType::kSInt8, {std::int8_t{-10}});
  EXPECT_EQ(TCIMValue(INT64_MIN).ToString(2), "-1" + std::string(63, '0'));
  EXPECT_EQ(TCIMValue(UINT32_MAX).ToString(36) + array.ToString(16), "1z141z3{-a}");
  EXPECT_EQ(TCIMValue(37U).ToString(1) + TCIMValue(37U).ToString(37), "3737");
  EXPECT_EQ((Conversions<long, unsigned long>(-1L)), "1T");
  EXPECT_EQ(TCIMValue(1UL).GetType(), sizeof(long) == 8 ? TType::kUInt64 : TType::kUInt32);
  EXPECT_THROW(TCIMValue::Array(TType::kString, {"a", 1}), TVYRException);
  EXPECT_THROW(TCIMValue::Array(TType::kStringArray, {}), TVYRException);
  EXPECT_THROW(TCIMValue::Array(TType::kNone, {}), TVYRException);
}

TEST(TCIMValue, OwnsItsContentAndSurvivesAssignmentFromItself) {
  TCIMValue value = TCIMValue::Array(TType::kString, {"first", "second"});
  value = *&value;
  TCIMValue copy = value;
  static_cast<TValues&>(value).at(0) = "changed";
  EXPECT_EQ(copy.ToString(10), "{first,second}");
  value = static_cast<TValues&>(value).at(0);
  EXPECT_EQ(value, TCIMValue("changed"));
  copy = std::move(static_cast<TValues&>(copy).at(1));
  EXPECT_EQ(copy, TCIMValue("second"));
  EXPECT_THROW(static_cast<TValues&>(copy).clear(), TVYRException);
}

TEST(TCIMValue, KnowsTheClassItWasMadeFor) {
  const auto narrow = MakeClass("Narrow");
  const auto wide = MakeClass("Wide");
  EXPECT_TRUE(TCIMValue(MakePath(narrow)) < TCIMValue(MakePath(wide), narrow));
  EXPECT_EQ(TCIMValue(MakePath(narrow), wide).GetReferencedClass(), wide);
  EXPECT_EQ(TCIMValue(MakePath(narrow), {}).GetReferencedClass(), narrow);
  EXPECT_EQ(TCIMValue::Null(TType::kReference).GetReferencedClass(), nullptr);
  const TCIMValue unset = TCIMValue::NullReference(wide);
  EXPECT_EQ(unset, TCIMValue::NullReference({}));
  EXPECT_EQ(unset.GetReferencedClass(), wide);
  EXPECT_EQ(static_cast<TCIMReference>(unset).GetPath(), "Wide");
}

}  // namespace NZELVYR20

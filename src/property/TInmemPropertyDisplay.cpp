#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "ICIMQualifier.h"
#include "Names.h"
#include "Swallow.h"
#include "TCIMDateTime.h"
#include "TInmemPropertyBase.h"
#include "TValueMapTable.h"
#include "UnsignedNumber.h"

namespace NZELVYR20 {

namespace {

using TType = TCIMValue::TCIMType;

constexpr int kScales = 9;
constexpr int kUnscaled = 5;
constexpr int kMilli = 6;
constexpr int kMicro = 7;
constexpr int kNano = 8;
constexpr std::array<std::string_view, kScales> kLongPrefixes{
    "Peta", "Tera", "Giga", "Mega", "Kilo", "", "Milli", "Micro", "Nano"};
constexpr std::array<std::string_view, kScales> kShortPrefixes{"P", "T", "G", "M", "K",
                                                               "",  "m", "u", "n"};

struct TAbbreviation {
  std::string_view unit;
  std::string_view text;
};

/// The first match counts. The second entry, which never does, stands for the place where "Bits"
/// was meant: it is not abbreviated, and displays are laid out for that.
constexpr std::array<TAbbreviation, 4> kAbbreviations{{
    {"Bytes", "B"},
    {"Bytes", "b"},
    {"Bytes per Second", "B/s"},
    {"Bits per Second", "bps"},
}};

std::string_view Abbreviate(std::string_view unit) {
  for (const TAbbreviation& abbreviation : kAbbreviations) {
    if (unit == abbreviation.unit) return abbreviation.text;
  }
  return unit;
}

/// By what the unit is scaled; 0 for a unit that is not.
float GetDivisor(std::string_view unit) {
  constexpr float kBinary = 1024;
  constexpr float kDecimal = 1000;
  if (unit == "Bytes" || unit == "Bits" || unit == "Bytes per Second") return kBinary;
  return unit == "Bits per Second" ? kDecimal : 0;
}

/// Cuts a long prefix off the unit and returns its scale.
int SplitPrefix(std::string_view& unit) {
  for (int scale = 0; scale < kScales; ++scale) {
    const std::string_view prefix = kLongPrefixes[scale];
    if (prefix.empty() || unit.substr(0, prefix.size()) != prefix) continue;
    unit.remove_prefix(prefix.size());
    return scale;
  }
  return kUnscaled;
}

/// With one decimal unless that is 0, and thousands grouped by commas, whatever locales the machine
/// has. No stream takes part: one with a locale of its own does not survive lack of memory.
std::string FormatNumber(float number) {
  std::array<char, 48> digits{};  // room for the 39 of the largest number
  const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                     std::chars_format::fixed, 1);
  std::string text(digits.data(), written.ptr);
  std::size_t whole = text.size() - 2;
  if (text.back() == '0') text.resize(whole);
  constexpr std::size_t kGroup = 3;
  for (; whole > kGroup; whole -= kGroup) text.insert(whole - kGroup, 1, ',');
  return text;
}

/// An interval of so many of a second's fractions.
TCIMDateTime MakeInterval(std::uint64_t number, std::uint64_t perSecond) {
  constexpr std::uint64_t kMicrosecondsPerSecond = 1000000;
  constexpr std::uint64_t kSixty = 60;
  constexpr std::uint64_t kHoursPerDay = 24;
  const std::uint64_t seconds = number / perSecond;
  const std::uint64_t fraction = number % perSecond;
  TCIMDateTime interval;
  interval.Set(static_cast<unsigned int>(seconds / (kSixty * kSixty * kHoursPerDay)),
               static_cast<unsigned short>(seconds / (kSixty * kSixty) % kHoursPerDay),
               static_cast<unsigned short>(seconds / kSixty % kSixty),
               static_cast<unsigned short>(seconds % kSixty),
               static_cast<unsigned int>(perSecond > kMicrosecondsPerSecond
                                             ? fraction / (perSecond / kMicrosecondsPerSecond)
                                             : fraction * (kMicrosecondsPerSecond / perSecond)));
  return interval;
}

}  // namespace

/// Empty where the qualifier is absent, null or no string.
std::string TInmemPropertyBase::FindText(const TDisplayQualifier& name) const {
  const auto qualifier = FindUsableQualifier(name, TType::kString);
  return qualifier ? static_cast<std::string>(qualifier->GetValue({})) : std::string();
}

/// Whether the qualifier is there with any value but null.
bool TInmemPropertyBase::IsQualifierSet(const TDisplayQualifier& name) const {
  const auto qualifier = FindQualifier(name);
  return qualifier && !qualifier->GetValue({}).IsNull();
}

std::string TInmemPropertyBase::ToStringWithQualifiers(const TCIMValue& value) const {
  if (value.IsNull()) return FindText(DisplayQualifier::kNullDisplay);
  const auto number = ReadUnsigned(value);
  if (!number) return ToStringWithBase(value);
  const std::string units = FindText(DisplayQualifier::kUnits);
  if (units.empty()) return ToStringWithBase(value);
  std::string_view unit = units;
  const int scale = SplitPrefix(unit);
  if (unit == "Seconds") return RenderTime(*number, scale);
  if (GetDivisor(unit) == 0) return ToStringWithBase(value);
  return RenderScaled(*number, unit, scale);
}

std::string TInmemPropertyBase::RenderTime(std::uint64_t number, int scale) const {
  TCIMDateTime interval;  // stays zero for multiples of seconds: those are not in use
  constexpr std::uint64_t kThousand = 1000;
  constexpr std::uint64_t kMillion = kThousand * kThousand;
  if (scale == kUnscaled) interval = MakeInterval(number, 1);
  if (scale == kMilli) interval = MakeInterval(number * kThousand, kMillion);
  if (scale == kMicro) interval = MakeInterval(number, kMillion);
  if (scale == kNano) interval = MakeInterval(number, kMillion * kThousand);
  FindQualifier(
      DisplayQualifier::kCpuTime);  // asked for, since its look-up may fail, but without effect
  return interval.ToUIString();
}

/// The scale beyond which a fixed unit keeps a value from being scaled.
int TInmemPropertyBase::GetScaleLimit() const {
  const std::string fixed = FindText(DisplayQualifier::kFixedUnits);
  for (const int scale : {1, 2, 3, 4}) {
    if (fixed == kLongPrefixes[scale]) return scale;
  }
  return 0;
}

std::string TInmemPropertyBase::RenderScaled(std::uint64_t number, std::string_view unit,
                                             int scale) const {
  const float divisor = GetDivisor(unit);
  const int limit = GetScaleLimit();
  auto scaled = static_cast<float>(number);
  while (scaled > divisor && scale > limit) {
    scaled /= divisor;
    --scale;
  }
  return FormatNumber(scaled) + " " + RenderUnit(unit, scale);
}

std::string TInmemPropertyBase::RenderUnit(std::string_view unit, int scale) const {
  if (IsQualifierSet(DisplayQualifier::kAbbreviate)) {
    return std::string(kShortPrefixes[scale]).append(Abbreviate(unit));
  }
  std::string text = std::string(kLongPrefixes[scale]).append(unit);
  std::transform(text.begin() + 1, text.end(), text.begin() + 1, FoldCharacter);
  return text;
}

std::string TInmemPropertyBase::Render(const TCIMValue& value) const {
  const auto table = FindTable(value, 0);
  if (!table) return ToStringWithQualifiers(value);
  return LookupInTable(value, table->entries, table->otherText);
}

std::string TInmemPropertyBase::ToString() const { return Render(GetValue({})); }

std::string TInmemPropertyBase::PrevValueToString() const { return Render(GetPrevValue()); }

std::vector<std::string> TInmemPropertyBase::ToStringVector() const {
  const auto table = FindTable(GetValue({}), TType::kArray);
  if (!table) return ToStringVectorWithBase();
  TCIMValue array(GetValue({}));
  std::vector<std::string> texts;
  for (const TCIMValue& element : static_cast<std::vector<TCIMValue>&>(array)) {
    texts.push_back(LookupInTable(element, table->entries, table->otherText));
  }
  return texts;
}

std::vector<std::string> TInmemPropertyBase::ToStringVectorWithBase() const {
  if (!IsArray({})) return {ToStringWithQualifiers(GetValue({}))};
  TCIMValue array(GetValue({}));
  std::vector<std::string> texts;
  const std::vector<TCIMValue>* elements = nullptr;
  if (!Swallow([&] { elements = &static_cast<std::vector<TCIMValue>&>(array); })) {
    // A null array has no elements to look at.
    if (const auto text = FindUsableQualifier(DisplayQualifier::kNullDisplay, TType::kString)) {
      texts.push_back(static_cast<std::string>(text->GetValue({})));
    }
    return texts;
  }
  texts.reserve(elements->size());
  for (const TCIMValue& element : *elements) texts.push_back(ToStringWithQualifiers(element));
  return texts;
}

}  // namespace NZELVYR20

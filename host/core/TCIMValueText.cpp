#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <ostream>

#include "TCIMDateTime.h"
#include "TCIMValue.h"
#include "TCIMValueReference.h"

// Values and types as text.

namespace NZELVYR20 {

namespace {

constexpr const char* kTypeWords[] = {
    "none",   "boolean", "uint8",  "sint8",  "uint16", "sint16", "uint32",   "sint32",
    "uint64", "sint64",  "real32", "real64", "char16", "string", "datetime", "reference"};

template <class TInteger>
std::string IntegerText(TInteger value, unsigned char base) {
  char text[65];  // a sign and 64 binary digits
  const int usedBase = base >= 2 && base <= 36 ? base : 10;
  const std::to_chars_result result =
      std::to_chars(std::begin(text), std::end(text), value, usedBase);
  return {std::begin(text), result.ptr};
}

template <class TReal>
std::string RealText(TReal value) {
  if (std::isnan(value)) return "nan";
  char text[32];  // the shortest form of a double takes 24
  const std::to_chars_result result = std::to_chars(std::begin(text), std::end(text), value);
  return {std::begin(text), result.ptr};
}

std::string CharacterText(char16_t value) {
  constexpr char16_t kReplacement = 0xFFFD;
  const unsigned code = value >= 0xD800 && value <= 0xDFFF ? kReplacement : value;
  const auto byte = [code](unsigned mark, unsigned shift, unsigned mask) {
    return static_cast<char>(mark | ((code >> shift) & mask));
  };
  if (code < 0x80) return {byte(0, 0, 0x7F)};
  if (code < 0x800) return {byte(0xC0, 6, 0x1F), byte(0x80, 0, 0x3F)};
  return {byte(0xE0, 12, 0x0F), byte(0x80, 6, 0x3F), byte(0x80, 0, 0x3F)};
}

}  // namespace

std::string TCIMValue::ToString(unsigned char base) const {
  if (isNull_) return {};
  if (IsArray()) return ElementsToString(base);
  switch (type_) {
    case TCIMType::kBoolean:
      return content_.unsignedInteger != 0 ? "TRUE" : "FALSE";
    case TCIMType::kSInt8:
    case TCIMType::kSInt16:
    case TCIMType::kSInt32:
    case TCIMType::kSInt64:
      return IntegerText(content_.signedInteger, base);
    case TCIMType::kReal32:
      return RealText(content_.real32);
    case TCIMType::kReal64:
      return RealText(content_.real64);
    case TCIMType::kChar16:
      return CharacterText(static_cast<char16_t>(content_.unsignedInteger));
    case TCIMType::kString:
      return *content_.text;
    case TCIMType::kDateTime:
      return content_.dateTime->ToUIString();
    case TCIMType::kReference:
      return content_.reference->path.ToString();
    default:
      return IntegerText(content_.unsignedInteger, base);
  }
}

std::string TCIMValue::ElementsToString(unsigned char base) const {
  std::string text = "{";
  const char* separator = "";
  for (const TCIMValue& element : *content_.elements) {
    text += separator;
    text += element.ToString(base);
    separator = ",";
  }
  return text + '}';
}

std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type) {
  const std::size_t number = type.GetElementType();
  stream << (number < std::size(kTypeWords) ? kTypeWords[number] : "unknown");
  if (type.IsArray()) stream << "[]";
  return stream;
}

}  // namespace NZELVYR20

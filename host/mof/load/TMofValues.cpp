#include "TMofValues.h"

#include <boost/numeric/conversion/cast.hpp>
#include <charconv>
#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

#include "TCIMDateTime.h"
#include "TMofFault.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using T = TCIMValue::TCIMType;

const char* GetKindText(const TMofLiteral& literal) {
  switch (literal.kind) {
    case TMofLiteral::kNull:
      return "null";
    case TMofLiteral::kBoolean:
      return "a boolean";
    case TMofLiteral::kInteger:
      return "an integer";
    case TMofLiteral::kReal:
      return "a real number";
    case TMofLiteral::kCharacter:
      return "a character";
    case TMofLiteral::kText:
      return "a string";
    case TMofLiteral::kAlias:
      return "an alias";
  }
  return "a value";
}

TMofFault WrongKind(const TMofLiteral& literal, T type) {
  return {literal.place,
          std::string(GetKindText(literal)) + " is no value of the type " + TypeText(type)};
}

TMofFault OutOfRange(const TMofLiteral& literal, T type) {
  return {literal.place, "the number is out of the range of the type " + TypeText(type)};
}

void Expect(const TMofLiteral& literal, TMofLiteral::EKind kind, T type) {
  if (literal.kind != kind) throw WrongKind(literal, type);
}

template <class TNumber>
TNumber MakeNegative(std::uint64_t magnitude) {
  // The smallest number has no positive counterpart.
  constexpr std::uint64_t kSmallest = std::uint64_t{1} << 63U;
  if (magnitude == kSmallest) {
    return boost::numeric_cast<TNumber>(std::numeric_limits<std::int64_t>::min());
  }
  return boost::numeric_cast<TNumber>(-boost::numeric_cast<std::int64_t>(magnitude));
}

template <class TNumber>
TCIMValue MakeInteger(const TMofLiteral& literal, T type) {
  Expect(literal, TMofLiteral::kInteger, type);
  try {
    return literal.isNegative ? MakeNegative<TNumber>(literal.number)
                              : boost::numeric_cast<TNumber>(literal.number);
  } catch (const boost::bad_numeric_cast&) {
    throw OutOfRange(literal, type);
  }
}

template <class TNumber>
TCIMValue MakeReal(const TMofLiteral& literal, T type) {
  if (literal.kind == TMofLiteral::kInteger) {
    const auto magnitude = static_cast<TNumber>(literal.number);
    return literal.isNegative ? -magnitude : magnitude;
  }
  Expect(literal, TMofLiteral::kReal, type);
  const char* begin = literal.text.data();
  const char* const end = begin + literal.text.size();
  if (begin != end && *begin == '+') ++begin;
  TNumber number = 0;
  const auto result = std::from_chars(begin, end, number);
  if (result.ec != std::errc() || result.ptr != end) throw OutOfRange(literal, type);
  return number;
}

TCIMValue MakeBoolean(const TMofLiteral& literal, T type) {
  Expect(literal, TMofLiteral::kBoolean, type);
  return literal.number != 0;
}

TCIMValue MakeCharacter(const TMofLiteral& literal, T type) {
  Expect(literal, TMofLiteral::kCharacter, type);
  return static_cast<char16_t>(literal.number);
}

TCIMValue MakeDateTime(const TMofLiteral& literal, T type) {
  Expect(literal, TMofLiteral::kText, type);
  try {
    return TCIMDateTime::FromCIMString(std::string(literal.text));
  } catch (const std::invalid_argument& error) {
    throw TMofFault(literal.place,
                    "date-time \"" + std::string(literal.text) + "\": " + error.what());
  }
}

}  // namespace

TMofValues::TMofValues(boost::shared_ptr<ICIMNamespace> nameSpace, TAliases aliases)
    : namespace_(std::move(nameSpace)), aliases_(std::move(aliases)) {}

TCIMValue TMofValues::Make(const TMofValue& value, T type) const {
  if (!type.IsArray()) {
    if (value.IsArray()) throw TMofFault(value.GetPlace(), "one value is expected, not an array");
    return MakeScalar(*value.begin(), type);
  }
  if (!value.IsArray() && value.begin()->kind == TMofLiteral::kNull) return TCIMValue::Null(type);
  std::vector<TCIMValue> elements;
  elements.reserve(value.GetSize());
  for (const TMofLiteral& literal : value) {
    elements.push_back(MakeScalar(literal, type.GetElementType()));
  }
  return TCIMValue::Array(type.GetElementType(), std::move(elements));
}

TCIMValue TMofValues::MakeScalar(const TMofLiteral& literal, T type) const {
  if (literal.kind == TMofLiteral::kNull) return TCIMValue::Null(type);
  switch (type) {
    case T::kBoolean:
      return MakeBoolean(literal, type);
    case T::kUInt8:
      return MakeInteger<std::uint8_t>(literal, type);
    case T::kSInt8:
      return MakeInteger<std::int8_t>(literal, type);
    case T::kUInt16:
      return MakeInteger<std::uint16_t>(literal, type);
    case T::kSInt16:
      return MakeInteger<std::int16_t>(literal, type);
    case T::kUInt32:
      return MakeInteger<std::uint32_t>(literal, type);
    case T::kSInt32:
      return MakeInteger<std::int32_t>(literal, type);
    case T::kUInt64:
      return MakeInteger<std::uint64_t>(literal, type);
    case T::kSInt64:
      return MakeInteger<std::int64_t>(literal, type);
    case T::kReal32:
      return MakeReal<float>(literal, type);
    case T::kReal64:
      return MakeReal<double>(literal, type);
    case T::kChar16:
      return MakeCharacter(literal, type);
    case T::kString:
      Expect(literal, TMofLiteral::kText, type);
      return text_.assign(literal.text);
    case T::kDateTime:
      return MakeDateTime(literal, type);
    case T::kReference:
      return MakePath(literal);
    default:
      throw WrongKind(literal, type);
  }
}

TCIMReference TMofValues::MakePath(const TMofLiteral& literal) const {
  if (literal.kind == TMofLiteral::kAlias && aliases_) return aliases_(literal);
  Expect(literal, TMofLiteral::kText, T::kReference);
  const std::string path(literal.text);
  try {
    return TCIMReference::Parse(path, namespace_);
  } catch (const std::invalid_argument& error) {
    throw TMofFault(literal.place, "object path " + path + ": " + error.what());
  } catch (const TVYRException& error) {
    throw TMofFault(literal.place, "the class of the object path " + path + ": " + error.what());
  }
}

}  // namespace NZELVYR20

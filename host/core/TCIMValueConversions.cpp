#include "TCIMDateTime.h"
#include "TCIMValue.h"
#include "TCIMValueReference.h"
#include "TVYRException.h"

// Each type converts to what it was made of, and to nothing else.

namespace NZELVYR20 {

namespace {

[[noreturn]] void ThrowTypeMismatch() { throw TVYRException(TVYRStatusCode::kTypeMismatch); }

}  // namespace

void TCIMValue::Expect(TCIMType type) const {
  if (type_ != type || isNull_) ThrowTypeMismatch();
}

void TCIMValue::ExpectArray() const {
  if (!IsArray() || isNull_) ThrowTypeMismatch();
}

std::uint64_t TCIMValue::ReadUnsigned(TCIMType type) const {
  Expect(type);
  return content_.unsignedInteger;
}

std::int64_t TCIMValue::ReadSigned(TCIMType type) const {
  Expect(type);
  return content_.signedInteger;
}

TCIMValue::operator bool() const { return ReadUnsigned(TCIMType::kBoolean) != 0; }

TCIMValue::operator unsigned char() const {
  return static_cast<unsigned char>(ReadUnsigned(TCIMType::kUInt8));
}

TCIMValue::operator signed char() const {
  return static_cast<signed char>(ReadSigned(TCIMType::kSInt8));
}

TCIMValue::operator unsigned short() const {
  return static_cast<unsigned short>(ReadUnsigned(TCIMType::kUInt16));
}

TCIMValue::operator short() const { return static_cast<short>(ReadSigned(TCIMType::kSInt16)); }

TCIMValue::operator unsigned int() const {
  return static_cast<unsigned int>(ReadUnsigned(TCIMType::kUInt32));
}

TCIMValue::operator int() const { return static_cast<int>(ReadSigned(TCIMType::kSInt32)); }

TCIMValue::operator unsigned long() const {
  return static_cast<unsigned long>(ReadUnsigned(TCIMValue(0UL).type_));
}

TCIMValue::operator long() const { return static_cast<long>(ReadSigned(TCIMValue(0L).type_)); }

TCIMValue::operator unsigned long long() const { return ReadUnsigned(TCIMType::kUInt64); }

TCIMValue::operator long long() const { return ReadSigned(TCIMType::kSInt64); }

TCIMValue::operator float() const {
  Expect(TCIMType::kReal32);
  return content_.real32;
}

TCIMValue::operator double() const {
  Expect(TCIMType::kReal64);
  return content_.real64;
}

TCIMValue::operator char16_t() const {
  return static_cast<char16_t>(ReadUnsigned(TCIMType::kChar16));
}

TCIMValue::operator std::string() const {
  Expect(TCIMType::kString);
  return *content_.text;
}

TCIMValue::operator TCIMDateTime() const {
  Expect(TCIMType::kDateTime);
  return *content_.dateTime;
}

TCIMValue::operator TCIMReference() const {
  if (!IsReference() || !OwnsContent()) ThrowTypeMismatch();
  return content_.reference->path;
}

TCIMValue::operator std::vector<TCIMValue>&() {
  ExpectArray();
  return *content_.elements;
}

TCIMValue::operator const std::vector<TCIMValue>&() const {
  ExpectArray();
  return *content_.elements;
}

}  // namespace NZELVYR20

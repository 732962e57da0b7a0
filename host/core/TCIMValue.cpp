#include "TCIMValue.h"

#include <algorithm>
#include <utility>

#include "ICIMClass.h"
#include "TCIMDateTime.h"
#include "TCIMValueReference.h"
#include "TVYRException.h"

namespace NZELVYR20 {

namespace {

using TType = TCIMValue::TCIMType;

constexpr TType::ECIMType kUnsignedLong =
    sizeof(unsigned long) == sizeof(std::uint64_t) ? TType::kUInt64 : TType::kUInt32;
constexpr TType::ECIMType kSignedLong =
    sizeof(long) == sizeof(std::int64_t) ? TType::kSInt64 : TType::kSInt32;

}  // namespace

// Every constructor starts from the typed null, which owns nothing: where an allocation fails, the
// destructor finds an object in order.
TCIMValue::TCIMValue(TCIMType type) noexcept : content_(), type_(type), isNull_(true) {
  if (type == TCIMType::kReference) content_.reference = nullptr;
}

TCIMValue::TCIMValue() noexcept : TCIMValue(TCIMType(TCIMType::kNone)) {}

TCIMValue::TCIMValue(bool value) noexcept : TCIMValue(TCIMType(TCIMType::kBoolean)) {
  SetUnsigned(value ? 1 : 0);
}

TCIMValue::TCIMValue(unsigned char value) noexcept : TCIMValue(TCIMType(TCIMType::kUInt8)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(signed char value) noexcept : TCIMValue(TCIMType(TCIMType::kSInt8)) {
  SetSigned(value);
}

TCIMValue::TCIMValue(unsigned short value) noexcept : TCIMValue(TCIMType(TCIMType::kUInt16)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(short value) noexcept : TCIMValue(TCIMType(TCIMType::kSInt16)) {
  SetSigned(value);
}

TCIMValue::TCIMValue(unsigned int value) noexcept : TCIMValue(TCIMType(TCIMType::kUInt32)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(int value) noexcept : TCIMValue(TCIMType(TCIMType::kSInt32)) {
  SetSigned(value);
}

TCIMValue::TCIMValue(unsigned long value) noexcept : TCIMValue(TCIMType(kUnsignedLong)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(long value) noexcept : TCIMValue(TCIMType(kSignedLong)) { SetSigned(value); }

TCIMValue::TCIMValue(unsigned long long value) noexcept : TCIMValue(TCIMType(TCIMType::kUInt64)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(long long value) noexcept : TCIMValue(TCIMType(TCIMType::kSInt64)) {
  SetSigned(value);
}

TCIMValue::TCIMValue(float value) noexcept : TCIMValue(TCIMType(TCIMType::kReal32)) {
  content_.real32 = value;
  SetNotNull();
}

TCIMValue::TCIMValue(double value) noexcept : TCIMValue(TCIMType(TCIMType::kReal64)) {
  content_.real64 = value;
  SetNotNull();
}

TCIMValue::TCIMValue(char16_t value) noexcept : TCIMValue(TCIMType(TCIMType::kChar16)) {
  SetUnsigned(value);
}

TCIMValue::TCIMValue(const std::string& value) : TCIMValue(TCIMType(TCIMType::kString)) {
  content_.text = new std::string(value);
  SetNotNull();
}

TCIMValue::TCIMValue(const char* value) : TCIMValue(TCIMType(TCIMType::kString)) {
  if (value == nullptr) return;
  content_.text = new std::string(value);
  SetNotNull();
}

TCIMValue::TCIMValue(const TCIMDateTime& value) : TCIMValue(TCIMType(TCIMType::kDateTime)) {
  content_.dateTime = new TCIMDateTime(value);
  SetNotNull();
}

TCIMValue::TCIMValue(const TCIMReference& path) : TCIMValue(path, path.GetClass()) {}

TCIMValue::TCIMValue(const TCIMReference& path, const boost::shared_ptr<ICIMClass>& referencedClass)
    : TCIMValue(TCIMType(TCIMType::kReference)) {
  content_.reference = new TReference{path, referencedClass ? referencedClass : path.GetClass()};
  SetNotNull();
}

TCIMValue TCIMValue::Null(TCIMType type) noexcept { return TCIMValue(type); }

TCIMValue TCIMValue::NullReference(const boost::shared_ptr<ICIMClass>& referencedClass) {
  TCIMValue value = Null(TCIMType::kReference);
  if (!referencedClass) return value;
  TCIMReference path({}, {});
  path.SetClass(referencedClass);
  value.content_.reference = new TReference{path, referencedClass};
  return value;
}

TCIMValue TCIMValue::Array(TCIMType elementType, std::vector<TCIMValue> elements) {
  const bool areTyped =
      elementType != TCIMType::kNone && !elementType.IsArray() &&
      std::all_of(elements.begin(), elements.end(),
                  [elementType](const TCIMValue& element) { return element.type_ == elementType; });
  if (!areTyped) throw TVYRException(TVYRStatusCode::kTypeMismatch);
  TCIMValue value(TCIMType::ArrayOf(elementType));
  value.content_.elements = new std::vector<TCIMValue>(std::move(elements));
  value.SetNotNull();
  return value;
}

TCIMValue::TCIMValue(const TCIMValue& other) : TCIMValue(other.type_) { CopyContent(other); }

TCIMValue::TCIMValue(TCIMValue&& other) noexcept : TCIMValue(other.type_) { Swap(other); }

// The source may be an element of this very array: it is read before anything is released.
TCIMValue& TCIMValue::operator=(const TCIMValue& other) {
  TCIMValue copy(other);
  Swap(copy);
  return *this;
}

TCIMValue& TCIMValue::operator=(TCIMValue&& other) noexcept {
  TCIMValue taken(std::move(other));
  Swap(taken);
  return *this;
}

TCIMValue::~TCIMValue() { ReleaseContent(); }

bool TCIMValue::OwnsContent() const noexcept {
  return isNull_ ? IsReference() && content_.reference != nullptr : type_ >= TCIMType::kString;
}

void TCIMValue::CopyContent(const TCIMValue& other) {
  if (!other.OwnsContent()) {
    content_ = other.content_;
  } else if (IsArray()) {
    content_.elements = new std::vector<TCIMValue>(*other.content_.elements);
  } else if (type_ == TCIMType::kString) {
    content_.text = new std::string(*other.content_.text);
  } else if (type_ == TCIMType::kDateTime) {
    content_.dateTime = new TCIMDateTime(*other.content_.dateTime);
  } else {
    content_.reference = new TReference(*other.content_.reference);
  }
  isNull_ = other.isNull_;
}

void TCIMValue::ReleaseContent() noexcept {
  if (!OwnsContent()) return;
  if (IsArray()) {
    delete content_.elements;
  } else if (type_ == TCIMType::kString) {
    delete content_.text;
  } else if (type_ == TCIMType::kDateTime) {
    delete content_.dateTime;
  } else {
    delete content_.reference;
  }
}

void TCIMValue::Swap(TCIMValue& other) noexcept {
  std::swap(content_, other.content_);
  std::swap(type_, other.type_);
  std::swap(isNull_, other.isNull_);
}

void TCIMValue::SetNotNull() noexcept { isNull_ = false; }

void TCIMValue::SetUnsigned(std::uint64_t value) noexcept {
  content_.unsignedInteger = value;
  SetNotNull();
}

void TCIMValue::SetSigned(std::int64_t value) noexcept {
  content_.signedInteger = value;
  SetNotNull();
}

TCIMValue::TCIMType TCIMValue::GetType() const noexcept { return type_; }

bool TCIMValue::IsNull() const noexcept { return isNull_; }

bool TCIMValue::IsArray() const noexcept { return type_.IsArray(); }

bool TCIMValue::IsReference() const noexcept { return type_ == TCIMType::kReference; }

boost::shared_ptr<ICIMClass> TCIMValue::GetReferencedClass() const {
  if (!IsReference() || !OwnsContent()) return {};
  return content_.reference->referencedClass;
}

}  // namespace NZELVYR20

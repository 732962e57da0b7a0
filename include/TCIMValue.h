#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMClass;
class TCIMDateTime;
class TCIMReference;

/// The variant that carries every value across the contract: a type, a null flag and, where the
/// value is not null, a scalar or an array of typed scalars.
///
/// A value owns its content; copies are independent of each other. Null is a state of every type:
/// a typed null is told from the default-constructed value (null, type none) by GetType().
class VYR_EXPORT TCIMValue {
 public:
  /// The type of a value, a declaration or a method's result. The numbers are part of the
  /// contract; the type of an array is kArray + the type of its elements.
  class VYR_EXPORT TCIMType {
   public:
    /// Scalars, and the arrays that have a name; ArrayOf() makes the others.
    enum ECIMType : std::uint8_t {
      kNone = 0,
      kBoolean = 1,
      kUInt8 = 2,
      kSInt8 = 3,
      kUInt16 = 4,
      kSInt16 = 5,
      kUInt32 = 6,
      kSInt32 = 7,
      kUInt64 = 8,
      kSInt64 = 9,
      kReal32 = 10,
      kReal64 = 11,
      kChar16 = 12,
      kString = 13,
      kDateTime = 14,
      kReference = 15,
      kArray = 16,
      kBooleanArray = kArray + kBoolean,
      kUInt8Array = kArray + kUInt8,
      kUInt16Array = kArray + kUInt16,
      kUInt32Array = kArray + kUInt32,
      kUInt64Array = kArray + kUInt64,
      kStringArray = kArray + kString,
      kReferenceArray = kArray + kReference,
    };

    /// The type of that number.
    TCIMType(ECIMType type = kNone) noexcept : type_(type) {}

    /// The type of an array whose elements are of the scalar type `element`.
    static TCIMType ArrayOf(ECIMType element) noexcept {
      return static_cast<ECIMType>(kArray + element);
    }

    /// The number.
    operator ECIMType() const noexcept { return type_; }

    /// Whether the type is that of an array.
    bool IsArray() const noexcept { return type_ >= kArray; }

    /// The scalar type itself, or that of an array's elements.
    TCIMType GetElementType() const noexcept {
      return IsArray() ? static_cast<ECIMType>(type_ - kArray) : type_;
    }

   private:
    ECIMType type_;
  };

  /// Null, of type none.
  TCIMValue() noexcept;

  /// @{
  /// A value of the CIM type that corresponds; `long` becomes the CIM type of its size on this
  /// machine.
  TCIMValue(bool value) noexcept;
  TCIMValue(unsigned char value) noexcept;
  TCIMValue(signed char value) noexcept;
  TCIMValue(unsigned short value) noexcept;
  TCIMValue(short value) noexcept;
  TCIMValue(unsigned int value) noexcept;
  TCIMValue(int value) noexcept;
  TCIMValue(unsigned long value) noexcept;
  TCIMValue(long value) noexcept;
  TCIMValue(unsigned long long value) noexcept;
  TCIMValue(long long value) noexcept;
  TCIMValue(float value) noexcept;
  TCIMValue(double value) noexcept;
  TCIMValue(char16_t value) noexcept;
  TCIMValue(const std::string& value);
  TCIMValue(const TCIMDateTime& value);
  /// @}

  /// A string; a null pointer gives a null string. Without this a text literal would become a
  /// boolean.
  TCIMValue(const char* value);

  /// A reference to the element that the path names; its referenced class is the path's class.
  TCIMValue(const TCIMReference& path);
  /// The same, with a referenced class of its own, which may be wider than the path's class; an
  /// empty pointer means the path's class.
  TCIMValue(const TCIMReference& path, const boost::shared_ptr<ICIMClass>& referencedClass);

  /// A plain char is neither a number nor a character of CIM.
  TCIMValue(char) = delete;
  /// A type is no value; without this it would become a number. Null() makes a typed null.
  TCIMValue(TCIMType::ECIMType) = delete;
  /// No pointer but a text becomes a value; without this every pointer would be a boolean.
  template <class TAny>
  TCIMValue(const TAny*) = delete;

  /// @{
  /// A copy owns content of its own. What was moved from is a null.
  TCIMValue(const TCIMValue& other);
  TCIMValue(TCIMValue&& other) noexcept;
  TCIMValue& operator=(const TCIMValue& other);
  TCIMValue& operator=(TCIMValue&& other) noexcept;
  /// @}
  ~TCIMValue();

  /// A null of the given type, scalar or array.
  static TCIMValue Null(TCIMType type) noexcept;

  /// A null reference that knows the class it would point to: the default of a reference
  /// declaration. It converts to a path with that class and no keys.
  static TCIMValue NullReference(const boost::shared_ptr<ICIMClass>& referencedClass);

  /// An array. Every element must be of the scalar type `elementType` (null ones included);
  /// another type throws status 14.
  static TCIMValue Array(TCIMType elementType, std::vector<TCIMValue> elements);

  /// The type, also of a null.
  TCIMType GetType() const noexcept;
  /// Whether there is no content.
  bool IsNull() const noexcept;
  /// True for the array types, null or not.
  bool IsArray() const noexcept;
  /// True for the type reference, null or not; false for arrays of references.
  bool IsReference() const noexcept;

  /// The class that a reference was made for (see the constructors); empty for a null reference
  /// made without one and for every other type. It is never the class of the element that the
  /// path resolves to.
  boost::shared_ptr<ICIMClass> GetReferencedClass() const;

  /// @{
  /// Conversions accept the very type only. Another type, or a null, throws status 14, except that
  /// a null reference with a class converts to a path with that class and no keys.
  explicit operator bool() const;
  explicit operator unsigned char() const;
  explicit operator signed char() const;
  explicit operator unsigned short() const;
  explicit operator short() const;
  explicit operator unsigned int() const;
  explicit operator int() const;
  explicit operator unsigned long() const;
  explicit operator long() const;
  explicit operator unsigned long long() const;
  explicit operator long long() const;
  explicit operator float() const;
  explicit operator double() const;
  explicit operator char16_t() const;
  explicit operator std::string() const;
  explicit operator TCIMDateTime() const;
  explicit operator TCIMReference() const;
  /// @}

  /// @{
  /// The elements of an array, in place. The caller keeps the elements' type as it is. A scalar or
  /// a null throws status 14.
  explicit operator std::vector<TCIMValue>&();
  explicit operator const std::vector<TCIMValue>&() const;
  /// @}

  /// @{
  /// Same type, same nullness, same content; references compare by the text of their paths, and
  /// nulls of one type are equal. Zero equals negative zero, and every NaN equals every other, so
  /// that a value always equals its copy.
  bool operator==(const TCIMValue& other) const;
  bool operator!=(const TCIMValue& other) const { return !(*this == other); }
  /// @}

  /// By type, then null first, then content; NaN comes after every number.
  bool operator<(const TCIMValue& other) const;

  /// The value as text. Strings as they are, without quotes; integers in base 2 to 36 (any other
  /// base means 10) with lower-case digits and a minus sign where negative, no prefix, no
  /// grouping; booleans TRUE and FALSE; reals as the shortest text that reads back to the same
  /// value, or inf, -inf and nan; characters as UTF-8, half of a surrogate pair as U+FFFD;
  /// date-times as their display text; references as paths in the declared spelling; arrays as
  /// {a,b}; null as the empty text.
  std::string ToString(unsigned char base) const;

 private:
  struct TReference;

  /// Which member is live follows from the type. A null has none, except that a null reference
  /// has its class in `reference`, or a null pointer there.
  union TContent {
    std::uint64_t unsignedInteger;  ///< also booleans and characters
    std::int64_t signedInteger;
    float real32;
    double real64;
    std::string* text;
    TCIMDateTime* dateTime;
    TReference* reference;
    std::vector<TCIMValue>* elements;
  };

  explicit TCIMValue(TCIMType type) noexcept;

  bool OwnsContent() const noexcept;
  void CopyContent(const TCIMValue& other);
  void ReleaseContent() noexcept;
  void Swap(TCIMValue& other) noexcept;

  void SetNotNull() noexcept;
  void SetUnsigned(std::uint64_t value) noexcept;
  void SetSigned(std::int64_t value) noexcept;
  std::uint64_t ReadUnsigned(TCIMType type) const;
  std::int64_t ReadSigned(TCIMType type) const;
  void Expect(TCIMType type) const;
  void ExpectArray() const;

  int Compare(const TCIMValue& other) const;
  int CompareContent(const TCIMValue& other) const;
  int CompareElements(const TCIMValue& other) const;
  std::string ElementsToString(unsigned char base) const;

  TContent content_;
  TCIMType type_;
  bool isNull_;
};

/// The MOF word for the type, with "[]" after it for arrays.
VYR_EXPORT std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type);

}  // namespace NZELVYR20

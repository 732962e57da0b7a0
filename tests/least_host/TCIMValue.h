#pragma once

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

// The value and the services of a host that offers what the plug-in may ask for and nothing more:
// the plug-in's sources are compiled against these headers in place of our own.

namespace NZELVYR20 {

class ICIMClass;
class TCIMDateTime;
class TCIMReference;

class TCIMValue {
 public:
  class TCIMType {
   public:
    enum ECIMType : std::uint8_t {
      kNone = 0,
      kBoolean = 1,
      kUInt8 = 2,
      kUInt16 = 4,
      kUInt32 = 6,
      kUInt64 = 8,
      kString = 13,
      kReference = 15,
      kArray = 16,
      kStringArray = kArray + kString,
      kReferenceArray = kArray + kReference,
    };

    TCIMType(ECIMType type);
    operator ECIMType() const;
  };

  TCIMValue();
  TCIMValue(const std::string& value);
  TCIMValue(unsigned short value);
  TCIMValue(const TCIMDateTime& value);

  bool IsNull() const;
  bool IsArray() const;
  bool IsReference() const;
  TCIMType GetType() const;
  boost::shared_ptr<ICIMClass> GetReferencedClass() const;

  explicit operator bool() const;
  explicit operator unsigned char() const;
  explicit operator unsigned short() const;
  explicit operator unsigned int() const;
  explicit operator unsigned long long() const;
  explicit operator std::string() const;
  explicit operator TCIMReference() const;
  explicit operator std::vector<TCIMValue>&();

  bool operator==(const TCIMValue& other) const;
  bool operator!=(const TCIMValue& other) const;
  bool operator<(const TCIMValue& other) const;
  std::string ToString(unsigned char base) const;
};

std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type);

}  // namespace NZELVYR20

#include "UnsignedNumber.h"

namespace NZELVYR20 {

std::optional<std::uint64_t> ReadUnsigned(const TCIMValue& value) {
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kUInt8:
      return static_cast<unsigned char>(value);
    case TCIMValue::TCIMType::kUInt16:
      return static_cast<unsigned short>(value);
    case TCIMValue::TCIMType::kUInt32:
      return static_cast<unsigned int>(value);
    case TCIMValue::TCIMType::kUInt64:
      return static_cast<unsigned long long>(value);
    default:
      return std::nullopt;
  }
}

}  // namespace NZELVYR20

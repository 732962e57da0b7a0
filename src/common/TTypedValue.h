#pragma once

#include "TCIMValue.h"

namespace NZELVYR20 {

/// A value that gives something else its type. The type stays when the value lets go of the classes
/// that it refers to: a host need not offer a null of a type.
class TTypedValue {
 public:
  explicit TTypedValue(const TCIMValue& value)
      : value_(value), type_(value_.GetType()), isArray_(value_.IsArray()) {}

  const TCIMValue& Get() const { return value_; }
  TCIMValue::TCIMType GetType() const { return type_; }
  bool IsArray() const { return isArray_; }

  /// Returns what it was, for the caller to let go of last: with that may go whoever holds this.
  [[nodiscard]] TCIMValue Exchange(const TCIMValue& value) {
    TCIMValue gone(value_);
    value_ = value;
    type_ = value_.GetType();
    isArray_ = value_.IsArray();
    return gone;
  }

  /// Whether it is a reference, or an array of them.
  bool MayHoldClasses() const {
    const auto type = value_.GetType();
    return type == TCIMValue::TCIMType::kReference || type == TCIMValue::TCIMType::kReferenceArray;
  }

  void ReleaseClasses() {
    const TCIMValue null;  // to be copied: a host need not offer to move one in
    if (MayHoldClasses()) value_ = null;
  }

 private:
  TCIMValue value_;
  TCIMValue::TCIMType type_;
  bool isArray_;
};

}  // namespace NZELVYR20

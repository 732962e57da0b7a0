#include <cmath>
#include <cstddef>

#include "TCIMDateTime.h"
#include "TCIMValue.h"
#include "TCIMValueReference.h"

// The order of values. One three-way comparison serves == and <, so that they cannot disagree.

namespace NZELVYR20 {

namespace {

template <class TContent>
int Order(const TContent& left, const TContent& right) {
  if (left < right) return -1;
  return right < left ? 1 : 0;
}

// All NaNs are one value, after every number: else < would not order a sorted container.
int OrderReals(double left, double right) {
  if (std::isnan(left) || std::isnan(right)) return Order(std::isnan(left), std::isnan(right));
  return Order(left, right);
}

}  // namespace

bool TCIMValue::operator==(const TCIMValue& other) const { return Compare(other) == 0; }

bool TCIMValue::operator<(const TCIMValue& other) const { return Compare(other) < 0; }

int TCIMValue::Compare(const TCIMValue& other) const {
  if (type_ != other.type_) return Order(type_, other.type_);
  if (isNull_ || other.isNull_) return Order(other.isNull_, isNull_);
  return CompareContent(other);
}

int TCIMValue::CompareContent(const TCIMValue& other) const {
  if (IsArray()) return CompareElements(other);
  switch (type_) {
    case TCIMType::kSInt8:
    case TCIMType::kSInt16:
    case TCIMType::kSInt32:
    case TCIMType::kSInt64:
      return Order(content_.signedInteger, other.content_.signedInteger);
    case TCIMType::kReal32:
      return OrderReals(content_.real32, other.content_.real32);
    case TCIMType::kReal64:
      return OrderReals(content_.real64, other.content_.real64);
    case TCIMType::kString:
      return Order(*content_.text, *other.content_.text);
    case TCIMType::kDateTime:
      return Order(*content_.dateTime, *other.content_.dateTime);
    case TCIMType::kReference:
      return Order(content_.reference->path.GetPath(), other.content_.reference->path.GetPath());
    default:
      return Order(content_.unsignedInteger, other.content_.unsignedInteger);
  }
}

int TCIMValue::CompareElements(const TCIMValue& other) const {
  const std::vector<TCIMValue>& left = *content_.elements;
  const std::vector<TCIMValue>& right = *other.content_.elements;
  for (std::size_t i = 0; i < left.size() && i < right.size(); ++i) {
    const int order = left[i].Compare(right[i]);
    if (order != 0) return order;
  }
  return Order(left.size(), right.size());
}

}  // namespace NZELVYR20

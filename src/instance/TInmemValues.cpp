#include "TInmemValues.h"

#include <memory>

namespace NZELVYR20 {

static_assert(alignof(TInmemValues) % alignof(TCIMValue) == 0);

TInmemValues::TInmemValues(std::size_t count) : count_(count) {
  std::uninitialized_value_construct_n(AreOwn(), count);
}

TInmemValues::~TInmemValues() {
  for (std::size_t i = 0; i < count_; ++i) {
    if (AreOwn()[i]) std::destroy_at(GetPlaces() + i);
  }
}

/// A place holds nothing before the first value.
void TInmemValues::Set(std::size_t position, const TCIMValue& value) {
  if (AreOwn()[position]) {
    GetPlaces()[position] = value;
    return;
  }
  new (GetPlaces() + position) TCIMValue(value);
  AreOwn()[position] = true;
}

}  // namespace NZELVYR20

#include "TInmemValues.h"

#include <memory>
#include <new>

namespace NZELVYR20 {

TInmemValues::TInmemValues(std::size_t count)
    : count_(count),
      values_(static_cast<TCIMValue*>(::operator new(count*(sizeof(TCIMValue) + sizeof(bool))))) {
  std::uninitialized_default_construct_n(values_, count);
  std::uninitialized_value_construct_n(AreOwn(), count);
}

TInmemValues::~TInmemValues() {
  std::destroy_n(values_, count_);
  ::operator delete(values_);
}

void TInmemValues::Set(std::size_t position, const TCIMValue& value) {
  values_[position] = value;
  AreOwn()[position] = true;
}

}  // namespace NZELVYR20

#include "TInmemProperties.h"

#include <algorithm>
#include <memory>
#include <new>

#include "TInmemInstance.h"

namespace NZELVYR20 {

namespace {

struct THead {
  TInmemInstance* owner;
};
constexpr std::size_t kHeadSize = std::max(sizeof(THead), alignof(TInmemInstanceProperty));

TInmemInstance& GetOwnerOf(const TInmemInstanceProperty* first) {
  const char* const memory = reinterpret_cast<const char*>(first) - kHeadSize;
  return *reinterpret_cast<const THead*>(memory)->owner;
}

}  // namespace

TInmemProperties::TInmemProperties(TInmemInstance& owner, std::size_t count) {
  void* const memory = ::operator new(kHeadSize + count * sizeof(TInmemInstanceProperty));
  first_ = reinterpret_cast<TInmemInstanceProperty*>(static_cast<char*>(memory) + kHeadSize);
  new (memory) THead{&owner};
  for (std::size_t i = 0; i < count; ++i) new (first_ + i) TInmemInstanceProperty(i);
}

TInmemProperties::~TInmemProperties() {
  std::destroy(begin(), end());
  ::operator delete(reinterpret_cast<char*>(first_) - kHeadSize);
}

std::size_t TInmemProperties::GetCount() const {
  return GetOwnerOf(first_).GetDeclared()->GetEntries().size();
}

TInmemInstance& TInmemProperties::GetOwner(const TInmemInstanceProperty& property) {
  return GetOwnerOf(&property - property.GetPosition());
}

}  // namespace NZELVYR20

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

THead* GetHead(const TInmemInstanceProperty* first) {
  auto* const place = const_cast<TInmemInstanceProperty*>(first);
  return reinterpret_cast<THead*>(reinterpret_cast<char*>(place) - kHeadSize);
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
  ::operator delete(GetHead(first_));
}

std::size_t TInmemProperties::GetCount() const {
  return GetHead(first_)->owner->GetDeclared()->GetEntries().size();
}

TInmemInstance& TInmemProperties::GetOwner(const TInmemInstanceProperty& property) {
  return *GetHead(&property - property.GetPosition())->owner;
}

}  // namespace NZELVYR20

#include "THeldProperty.h"

#include "MakeInOneBlock.h"
#include "TInmemInstance.h"

namespace NZELVYR20 {

THeldProperty::TPointer THeldProperty::Make(TInmemInstance& instance, std::size_t position) {
  const auto letGo = [](THeldProperty* property) { property->~THeldProperty(); };
  auto property = MakeInOneBlock<THeldProperty>(letGo, instance, position);
  property->self_ = property;
  return property;
}

THeldProperty::THeldProperty(TInmemInstance& instance, std::size_t position)
    : TInmemInstanceProperty(instance, position) {
  instance.NoteHeld(*this);
}

THeldProperty::~THeldProperty() { GetInstance().NoteLetGo(*this); }

}  // namespace NZELVYR20

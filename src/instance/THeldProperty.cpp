#include "THeldProperty.h"

#include "TInmemInstance.h"

namespace NZELVYR20 {

THeldProperty::TPointer THeldProperty::Make(TInmemInstance& instance, std::size_t position) {
  auto* const property = new THeldProperty(instance, position);
  instance.NoteHeld(*property);
  return property->GetCounted();
}

THeldProperty::TPointer THeldProperty::Share() {
  add_ref_copy();
  return GetCounted();
}

THeldProperty::TPointer THeldProperty::GetCounted() {
  boost::detail::sp_counted_base* const count = this;
  return TPointer(boost::detail::sp_internal_constructor_tag(), this,
                  boost::detail::shared_count(count));
}

void THeldProperty::dispose() noexcept { GetInstance().NoteLetGo(*this); }

}  // namespace NZELVYR20

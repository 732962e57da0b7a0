#include "TInmemInstanceProperty.h"

#include "TInmemInstance.h"

namespace NZELVYR20 {

boost::shared_ptr<const ICIMPropertyDecl> TInmemInstanceProperty::GetDeclaration(
    TCIMContext) const {
  return instance_.GetDeclarationOf(position_);
}

const ICIMPropertyDecl& TInmemInstanceProperty::Declaration() const {
  return *instance_.GetDeclared()->GetEntries()[position_].declaration;
}

const TCIMValue* TInmemInstanceProperty::FindOwnValue() const {
  return instance_.FindOwnValue(position_);
}

void TInmemInstanceProperty::KeepOwnValue(const TCIMValue& value) {
  instance_.KeepOwnValue(position_, value);
}

const TCIMValue* TInmemInstanceProperty::FindPreviousValue() const {
  return instance_.FindPreviousValue(position_);
}

void TInmemInstanceProperty::KeepPreviousValue(const TCIMValue& value) {
  instance_.KeepPreviousValue(position_, value);
}

boost::shared_ptr<const void> TInmemInstanceProperty::Hold() {
  return instance_.shared_from_this();
}

}  // namespace NZELVYR20

#include "TInmemInstanceProperty.h"

#include "TInmemClass.h"
#include "TInmemInstance.h"
#include "TInmemProperties.h"

namespace NZELVYR20 {

boost::shared_ptr<const ICIMPropertyDecl> TInmemInstanceProperty::GetDeclaration(
    TCIMContext) const {
  return TInmemProperties::GetOwner(*this).GetDeclarationOf(position_);
}

const ICIMPropertyDecl& TInmemInstanceProperty::Declaration() const {
  return *TInmemProperties::GetOwner(*this).GetDeclared()->GetEntries()[position_].declaration;
}

/// What an index knows of the value that goes is forgotten before that, and the class to which it
/// refers, may be gone.
void TInmemInstanceProperty::NoteChange(const TCIMValue& value) {
  if (!value.IsReference() && !GetOwnValue().IsReference()) return;
  TInmemProperties::GetOwner(*this).NoteReferenceChange(position_);
}

TInmemClass* TInmemInstanceProperty::FindReferencedClass() const {
  if (!GetOwnValue().IsReference()) return nullptr;
  return dynamic_cast<TInmemClass*>(GetOwnValue().GetReferencedClass().get());
}

const TCIMValue* TInmemInstanceProperty::FindPreviousValue() const {
  return TInmemProperties::GetOwner(*this).FindPreviousValue(position_);
}

void TInmemInstanceProperty::KeepPreviousValue(const TCIMValue& value) {
  TInmemProperties::GetOwner(*this).KeepPreviousValue(position_, value);
}

}  // namespace NZELVYR20

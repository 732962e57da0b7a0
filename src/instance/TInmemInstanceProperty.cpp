#include "TInmemInstanceProperty.h"

#include "Failures.h"
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

void TInmemInstanceProperty::SetValue(const TCIMValue& value, TCIMContext context) {
  TInmemInstance& owner = TInmemProperties::GetOwner(*this);
  const bool concernsIndexes = owner.GetEntries() != nullptr &&
                               (value.IsReference() || GetValue(TCIMContext()).IsReference());
  TInmemPropertyBase::SetValue(value, context);
  if (concernsIndexes) owner.ReferencesChanged();
}

const TCIMValue* TInmemInstanceProperty::FindPreviousValue() const {
  return TInmemProperties::GetOwner(*this).FindPreviousValue(position_);
}

void TInmemInstanceProperty::KeepPreviousValue(const TCIMValue& value) {
  TInmemProperties::GetOwner(*this).KeepPreviousValue(position_, value);
}

/// A default may change without notice, and so an index tells nothing about it.
TReferenceTarget* TInmemInstanceProperty::FindTarget() const {
  return IsDefaultValue(TCIMContext()) ? nullptr
                                       : TInmemProperties::GetOwner(*this).FindTarget(position_);
}

boost::shared_ptr<ICIMElement> TInmemInstanceProperty::FollowReference() const {
  TReferenceTarget* const target = FindTarget();
  if (!target) return TInmemPropertyBase::FollowReference();
  auto instance = TInmemProperties::GetOwner(*this).Follow(*target);
  if (!instance) throw Failure::NotFound();
  return instance;
}

}  // namespace NZELVYR20

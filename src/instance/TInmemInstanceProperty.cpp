#include "TInmemInstanceProperty.h"

#include "Failures.h"
#include "TInmemInstance.h"

namespace NZELVYR20 {

boost::shared_ptr<const ICIMPropertyDecl> TInmemInstanceProperty::GetDeclaration(
    TCIMContext) const {
  return owner_->GetDeclarationOf(*this);
}

void TInmemInstanceProperty::SetValue(const TCIMValue& value, TCIMContext context) {
  TInmemPropertyBase::SetValue(value, context);
  if (value.IsReference()) owner_->ReferencesChanged();
}

/// A default may change without notice, and so an index tells nothing about it.
TReferenceTarget* TInmemInstanceProperty::FindTarget() const {
  return IsDefaultValue(TCIMContext()) ? nullptr : owner_->FindTarget(*this);
}

boost::shared_ptr<ICIMElement> TInmemInstanceProperty::FollowReference() const {
  TReferenceTarget* const target = FindTarget();
  if (!target) return TInmemPropertyBase::FollowReference();
  auto instance = owner_->Follow(*target);
  if (!instance) throw Failure::NotFound();
  return instance;
}

bool TInmemInstanceProperty::MayLeadTo(const TInmemInstance& instance) const {
  const TReferenceTarget* const target = FindTarget();
  return !target || instance.StandsUnder(*target->path);
}

}  // namespace NZELVYR20

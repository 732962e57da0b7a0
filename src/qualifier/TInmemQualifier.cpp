#include "TInmemQualifier.h"

#include "ICIMNamedElement.h"
#include "NormalizedNames.h"
#include "References.h"
#include "TInmemQualifierDecl.h"

namespace NZELVYR20 {

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 const boost::shared_ptr<const ICIMQualifierDecl>& declaration,
                                 const TCIMValue& value, ICIMQualifierDecl::EFlavor flavor)
    : owner_(owner),
      declaration_(declaration),
      value_(value),
      flavor_(flavor),
      propagated_(false) {}

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 const boost::shared_ptr<const ICIMQualifierDecl>& declaration,
                                 const TCIMValue& value)
    : TInmemQualifier(owner, declaration, value, declaration->GetFlavor(TCIMContext())) {}

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 const boost::shared_ptr<const ICIMQualifier>& source)
    : owner_(owner),
      declaration_(source->GetDeclaration(TCIMContext())),
      value_(source->GetValue(TCIMContext())),
      flavor_(source->GetFlavor(TCIMContext())),
      propagated_(source->GetPropagated(TCIMContext())) {}

TInmemQualifier::~TInmemQualifier() = default;

void TInmemQualifier::ReleaseReferences() {
  NZELVYR20::ReleaseReferences(value_);
  const auto declaration = boost::dynamic_pointer_cast<const TInmemQualifierDecl>(declaration_);
  if (declaration) boost::const_pointer_cast<TInmemQualifierDecl>(declaration)->ReleaseReferences();
}

void TInmemQualifier::AddToClassOrProperty(TCIMContext) const {
  const auto self = boost::const_pointer_cast<TInmemQualifier>(shared_from_this());
  GetClassOrProperty(TCIMContext())->AddQualifier(self, TCIMContext());
}

void TInmemQualifier::Validate(TCIMContext) {}

void TInmemQualifier::RemoveFromClassOrProperty(TCIMContext) {}

const std::string& TInmemQualifier::GetName(TCIMContext) const {
  return declaration_->GetName(TCIMContext());
}

boost::shared_ptr<ICIMNamedElement> TInmemQualifier::GetClassOrProperty(TCIMContext) const {
  return boost::const_pointer_cast<ICIMNamedElement>(owner_.lock());
}

TCIMValue::TCIMType TInmemQualifier::GetType(TCIMContext) const { return value_.GetType(); }

bool TInmemQualifier::IsArray(TCIMContext) const { return value_.IsArray(); }

boost::shared_ptr<const ICIMQualifierDecl> TInmemQualifier::GetDeclaration(TCIMContext) const {
  return declaration_;
}

const TCIMValue& TInmemQualifier::GetValue(TCIMContext) const { return value_; }

void TInmemQualifier::SetValue(const TCIMValue& value, TCIMContext) {
  value_ = value;
  propagated_ = false;
}

void TInmemQualifier::SetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext) {
  flavor_ = flavor_ | flavor;
  propagated_ = false;
}

void TInmemQualifier::UnsetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext) {
  flavor_ = flavor_ - flavor;
  propagated_ = false;
}

ICIMQualifierDecl::EFlavor TInmemQualifier::GetFlavor(TCIMContext) const { return flavor_; }

bool TInmemQualifier::operator==(ICIMQualifier& other) const {
  return IsSameName(GetName(TCIMContext()),
                    other.GetDeclaration(TCIMContext())->GetName(TCIMContext()));
}

bool TInmemQualifier::operator<(ICIMQualifier& other) const {
  return IsNameLess(GetName(TCIMContext()),
                    other.GetDeclaration(TCIMContext())->GetName(TCIMContext()));
}

bool TInmemQualifier::GetPropagated(TCIMContext) const { return propagated_; }

ICIMQualifier& TInmemQualifier::operator=(const ICIMQualifier&) { return *this; }
TInmemQualifier& TInmemQualifier::operator=(const TInmemQualifier&) { return *this; }

}  // namespace NZELVYR20

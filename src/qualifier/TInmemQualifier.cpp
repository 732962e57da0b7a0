#include "TInmemQualifier.h"

#include <boost/make_shared.hpp>
#include <utility>

#include "ICIMNamedElement.h"
#include "NormalizedNames.h"
#include "TInmemQualifierDecl.h"

namespace NZELVYR20 {

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 boost::shared_ptr<const ICIMQualifierDecl> declaration,
                                 const TCIMValue& value, ICIMQualifierDecl::EFlavor flavor)
    : owner_(owner),
      declaration_(std::move(declaration)),
      value_(value),
      flavor_(flavor),
      propagated_(false) {}

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 boost::shared_ptr<const ICIMQualifierDecl> declaration,
                                 const TCIMValue& value)
    : owner_(owner),
      declaration_(std::move(declaration)),
      value_(value),
      flavor_(declaration_->GetFlavor({})),
      propagated_(false) {}

TInmemQualifier::TInmemQualifier(const boost::shared_ptr<const ICIMNamedElement>& owner,
                                 const boost::shared_ptr<const ICIMQualifier>& source)
    : owner_(owner),
      declaration_(source->GetDeclaration({})),
      value_(source->GetValue({})),
      flavor_(source->GetFlavor({})),
      propagated_(source->GetPropagated({})) {}

TInmemQualifier::~TInmemQualifier() = default;

bool TInmemQualifier::MayHoldClasses() const {
  const auto* const declaration = dynamic_cast<const TInmemQualifierDecl*>(declaration_.get());
  return value_.MayHoldClasses() || (declaration != nullptr && declaration->MayHoldClasses());
}

boost::shared_ptr<TInmemQualifier> TInmemQualifier::CopyWithoutClasses() const {
  auto declaration = declaration_;
  const auto* const own = dynamic_cast<const TInmemQualifierDecl*>(declaration.get());
  if (own != nullptr && own->MayHoldClasses()) declaration = own->CopyWithoutClasses();
  auto copy =
      boost::make_shared<TInmemQualifier>(owner_.lock(), declaration, value_.Get(), flavor_);
  copy->value_.ReleaseClasses();
  copy->propagated_ = propagated_;
  return copy;
}

void TInmemQualifier::AddToClassOrProperty(TCIMContext) const {
  auto self = boost::const_pointer_cast<TInmemQualifier>(shared_from_this());
  GetClassOrProperty({})->AddQualifier(std::move(self), {});
}

void TInmemQualifier::Validate(TCIMContext) {}

void TInmemQualifier::RemoveFromClassOrProperty(TCIMContext) {}

const std::string& TInmemQualifier::GetName(TCIMContext) const { return declaration_->GetName({}); }

boost::shared_ptr<ICIMNamedElement> TInmemQualifier::GetClassOrProperty(TCIMContext) const {
  return boost::const_pointer_cast<ICIMNamedElement>(owner_.lock());
}

TCIMValue::TCIMType TInmemQualifier::GetType(TCIMContext) const { return value_.GetType(); }

bool TInmemQualifier::IsArray(TCIMContext) const { return value_.IsArray(); }

boost::shared_ptr<const ICIMQualifierDecl> TInmemQualifier::GetDeclaration(TCIMContext) const {
  return declaration_;
}

const TCIMValue& TInmemQualifier::GetValue(TCIMContext) const { return value_.Get(); }

void TInmemQualifier::SetValue(const TCIMValue& value, TCIMContext) {
  if (revision_ != kLastRevision) ++revision_;
  value_.Set(value);
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
  return IsSameName(GetName({}), other.GetDeclaration({})->GetName({}));
}

bool TInmemQualifier::operator<(ICIMQualifier& other) const {
  return IsNameLess(GetName({}), other.GetDeclaration({})->GetName({}));
}

bool TInmemQualifier::GetPropagated(TCIMContext) const { return propagated_; }

ICIMQualifier& TInmemQualifier::operator=(const ICIMQualifier&) { return *this; }
TInmemQualifier& TInmemQualifier::operator=(const TInmemQualifier&) { return *this; }

}  // namespace NZELVYR20

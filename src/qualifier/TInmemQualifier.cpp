#include "TInmemQualifier.h"

#include <utility>

#include "ICIMNamedElement.h"
#include "NormalizedNames.h"
#include "TInmemQualifierDecl.h"
#include "TOneBlock.h"

namespace NZELVYR20 {

boost::shared_ptr<TInmemQualifier> TInmemQualifier::Make(
    TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
    ICIMQualifierDecl::EFlavor flavor) {
  return TOneBlock<TInmemQualifier>::Make(0, std::move(owner), std::move(declaration), value,
                                          flavor);
}

boost::shared_ptr<TInmemQualifier> TInmemQualifier::Make(
    TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value) {
  return TOneBlock<TInmemQualifier>::Make(0, std::move(owner), std::move(declaration), value);
}

TInmemQualifier::TInmemQualifier(TOwner owner,
                                 boost::shared_ptr<const ICIMQualifierDecl> declaration,
                                 const TCIMValue& value, ICIMQualifierDecl::EFlavor flavor)
    : owner_(std::move(owner)),
      declaration_(std::move(declaration)),
      value_(value),
      flavor_(flavor),
      propagated_(false) {}

TInmemQualifier::TInmemQualifier(TOwner owner,
                                 boost::shared_ptr<const ICIMQualifierDecl> declaration,
                                 const TCIMValue& value)
    : owner_(std::move(owner)),
      declaration_(std::move(declaration)),
      value_(value),
      flavor_(declaration_->GetFlavor({})),
      propagated_(false) {}

TInmemQualifier::TInmemQualifier(TOwner owner, const boost::shared_ptr<const ICIMQualifier>& source)
    : owner_(std::move(owner)),
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
  auto copy = Make(owner_, std::move(declaration), value_.Get(), flavor_);
  copy->value_.ReleaseClasses();
  copy->propagated_ = propagated_;
  return copy;
}

boost::shared_ptr<TInmemQualifier> TInmemQualifier::PassDown(TOwner owner) const {
  auto copy = Make(std::move(owner), declaration_, value_.Get(), flavor_);
  copy->propagated_ = true;
  return copy;
}

void TInmemQualifier::AddToClassOrProperty(TCIMContext) const {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): elements take what they may change
  auto self = TOneBlock<TInmemQualifier>::Share(const_cast<TInmemQualifier&>(*this));
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
  [[maybe_unused]] const TCIMValue gone = value_.Exchange(value);
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

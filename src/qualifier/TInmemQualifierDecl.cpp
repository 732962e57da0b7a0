#include "TInmemQualifierDecl.h"

#include <boost/make_shared.hpp>

#include "NormalizedNames.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

TInmemQualifierDecl::TInmemQualifierDecl(const boost::shared_ptr<TInmemNamespace>& nameSpace,
                                         const std::string& name, const TCIMValue& defaultValue,
                                         EScope scope, EFlavor flavor)
    : namespace_(nameSpace), name_(name), default_(defaultValue), scope_(scope), flavor_(flavor) {}

TInmemQualifierDecl::~TInmemQualifierDecl() = default;

boost::shared_ptr<TInmemQualifierDecl> TInmemQualifierDecl::CopyWithoutClasses() const {
  auto copy = boost::make_shared<TInmemQualifierDecl>(namespace_.lock(), name_, default_.Get(),
                                                      scope_, flavor_);
  copy->default_.ReleaseClasses();
  return copy;
}

void TInmemQualifierDecl::AddToNamespace(TCIMContext) {
  namespace_.lock()->AddQualifierDecl(shared_from_this());
}

void TInmemQualifierDecl::Validate(TCIMContext) {}

void TInmemQualifierDecl::RemoveQualifierDecl(TCIMContext) {}

const std::string& TInmemQualifierDecl::GetName(TCIMContext) const { return name_; }

boost::shared_ptr<ICIMNamespace> TInmemQualifierDecl::GetNamespace(TCIMContext) const {
  return namespace_.lock();
}

TCIMValue::TCIMType TInmemQualifierDecl::GetType(TCIMContext) const { return default_.GetType(); }

bool TInmemQualifierDecl::IsArray(TCIMContext) const { return default_.IsArray(); }

const TCIMValue& TInmemQualifierDecl::GetDefaultValue(TCIMContext) const { return default_.Get(); }

void TInmemQualifierDecl::SetDefaultValue(const TCIMValue& value, TCIMContext) {
  [[maybe_unused]] const TCIMValue gone = default_.Exchange(value);
}

ICIMQualifierDecl::EScope TInmemQualifierDecl::GetScope(TCIMContext) const { return scope_; }

void TInmemQualifierDecl::SetFlavor(EFlavor flavor, TCIMContext) { flavor_ = flavor_ | flavor; }

void TInmemQualifierDecl::UnsetFlavor(EFlavor flavor, TCIMContext) { flavor_ = flavor_ - flavor; }

ICIMQualifierDecl::EFlavor TInmemQualifierDecl::GetFlavor(TCIMContext) const { return flavor_; }

bool TInmemQualifierDecl::operator==(ICIMQualifierDecl& other) const {
  return IsSameName(name_, other.GetName({}));
}

bool TInmemQualifierDecl::operator<(ICIMQualifierDecl& other) const {
  return IsNameLess(name_, other.GetName({}));
}

ICIMQualifierDecl& TInmemQualifierDecl::operator=(const ICIMQualifierDecl&) { return *this; }
TInmemQualifierDecl& TInmemQualifierDecl::operator=(const TInmemQualifierDecl&) { return *this; }

}  // namespace NZELVYR20

#include "TInmemPropertyDecl.h"

#include <utility>

#include "Failures.h"
#include "TInmemClass.h"
#include "TValueMapTable.h"

namespace NZELVYR20 {

TInmemPropertyDecl::TInmemPropertyDecl(boost::weak_ptr<TInmemClass> owner, const std::string& name,
                                       const TCIMValue& defaultValue)
    : TInmemFeatureDecl(name), class_(std::move(owner)), default_(defaultValue) {}

TInmemPropertyDecl::TInmemPropertyDecl(const boost::shared_ptr<const TInmemClass>&,
                                       const boost::shared_ptr<const ICIMPropertyDecl>&)
    : TInmemFeatureDecl(std::string()), default_(TCIMValue()) {}

TInmemPropertyDecl::~TInmemPropertyDecl() = default;

boost::shared_ptr<TInmemQualifier> TInmemPropertyDecl::LookupQualifier(
    const std::string& name) const {
  return qualifiers_.Find(name);
}

void TInmemPropertyDecl::RemoveQualifier(const boost::shared_ptr<ICIMQualifier>& qualifier) {
  qualifiers_.Remove(qualifier->GetName({}));
}

boost::shared_ptr<ICIMClass> TInmemPropertyDecl::GetReferencedClass() const {
  const TCIMValue& value = default_.Get();
  return value.IsReference() ? value.GetReferencedClass() : boost::shared_ptr<ICIMClass>();
}

void TInmemPropertyDecl::ReleaseClasses() noexcept {
  TInmemFeatureDecl::ReleaseClasses();
  default_.ReleaseClasses();
  ++defaultRevision_;
}

boost::shared_ptr<ICIMQualifier> TInmemPropertyDecl::GetQualifier(const std::string& name,
                                                                  TCIMContext) const {
  auto qualifier = LookupQualifier(name);
  if (!qualifier) throw Failure::NotFound();
  return qualifier;
}

void TInmemPropertyDecl::EnumerateQualifiers(const TCIMQualifierCallback& callback,
                                             TCIMContext) const {
  qualifiers_.Enumerate(shared_from_this(), kVisitsAllAndDiscards, callback);
}

boost::shared_ptr<ICIMQualifier> TInmemPropertyDecl::GetQualifier(const std::string& name,
                                                                  bool& found, TCIMContext) const {
  return qualifiers_.Find(name, found);
}

void TInmemPropertyDecl::Validate(TCIMContext) {}

void TInmemPropertyDecl::AddToClass(TCIMContext) {
  Validate({});
  class_.lock()->AddPropertyDecl(shared_from_this());
}

void TInmemPropertyDecl::RemoveFromClass(TCIMContext) {}

boost::shared_ptr<ICIMClass> TInmemPropertyDecl::GetClass(TCIMContext) const {
  return class_.lock();
}

TCIMValue::TCIMType TInmemPropertyDecl::GetType(TCIMContext) const { return default_.GetType(); }

bool TInmemPropertyDecl::IsArray(TCIMContext) const { return default_.IsArray(); }

const TCIMValue& TInmemPropertyDecl::GetDefaultValue(TCIMContext) const { return default_.Get(); }

void TInmemPropertyDecl::SetDefaultValue(const TCIMValue& value, TCIMContext) {
  [[maybe_unused]] const TCIMValue gone = default_.Exchange(value);
  ++defaultRevision_;
}

}  // namespace NZELVYR20

#include "TInmemPropertyDecl.h"

#include "Failures.h"
#include "References.h"
#include "TInmemClass.h"

namespace NZELVYR20 {

TInmemPropertyDecl::TInmemPropertyDecl(const boost::shared_ptr<TInmemClass>& owner,
                                       const std::string& name, const TCIMValue& defaultValue)
    : TInmemDeclaration(name), class_(owner), defaultValue_(defaultValue) {}

TInmemPropertyDecl::TInmemPropertyDecl(const boost::shared_ptr<const TInmemClass>&,
                                       const boost::shared_ptr<const ICIMPropertyDecl>&)
    : TInmemDeclaration(std::string()) {}

TInmemPropertyDecl::~TInmemPropertyDecl() = default;

boost::shared_ptr<TInmemQualifier> TInmemPropertyDecl::LookupQualifier(
    const std::string& name) const {
  return qualifiers_.Find(name);
}

void TInmemPropertyDecl::RemoveQualifier(const boost::shared_ptr<ICIMQualifier>& qualifier) {
  qualifiers_.Remove(qualifier->GetName(TCIMContext()));
}

boost::shared_ptr<ICIMClass> TInmemPropertyDecl::GetReferencedClass() const {
  return defaultValue_.IsReference() ? defaultValue_.GetReferencedClass()
                                     : boost::shared_ptr<ICIMClass>();
}

void TInmemPropertyDecl::ReleaseReferences() {
  TInmemDeclaration::ReleaseReferences();
  NZELVYR20::ReleaseReferences(defaultValue_);
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
  Validate(TCIMContext());
  class_.lock()->AddPropertyDecl(shared_from_this());
}

void TInmemPropertyDecl::RemoveFromClass(TCIMContext) {}

boost::shared_ptr<ICIMClass> TInmemPropertyDecl::GetClass(TCIMContext) const {
  return class_.lock();
}

TCIMValue::TCIMType TInmemPropertyDecl::GetType(TCIMContext) const {
  return defaultValue_.GetType();
}

bool TInmemPropertyDecl::IsArray(TCIMContext) const { return defaultValue_.IsArray(); }

const TCIMValue& TInmemPropertyDecl::GetDefaultValue(TCIMContext) const { return defaultValue_; }

void TInmemPropertyDecl::SetDefaultValue(const TCIMValue& value, TCIMContext) {
  defaultValue_ = value;
  ++defaultRevision_;
}

}  // namespace NZELVYR20

#include "TInmemParameterDecl.h"

#include "Failures.h"
#include "TInmemMethodDecl.h"

namespace NZELVYR20 {

TInmemParameterDecl::TInmemParameterDecl(const boost::shared_ptr<TInmemMethodDecl>& method,
                                         const std::string& name, const TCIMValue::TCIMType& type)
    : TInmemDeclaration(name), method_(method), type_(type) {}

TInmemParameterDecl::~TInmemParameterDecl() = default;

boost::shared_ptr<TInmemQualifier> TInmemParameterDecl::LookupQual(const std::string& name) const {
  return qualifiers_.Find(name);
}

void TInmemParameterDecl::RemoveQualifier(const boost::shared_ptr<ICIMQualifier>& qualifier) {
  qualifiers_.Remove(qualifier->GetName({}));
}

/// A miss is an empty pointer here, where the method's own look-up throws.
boost::shared_ptr<ICIMQualifier> TInmemParameterDecl::GetQualifier(const std::string& name,
                                                                   TCIMContext) const {
  return LookupQual(name);
}

void TInmemParameterDecl::EnumerateQualifiers(const TCIMQualifierCallback& callback,
                                              TCIMContext) const {
  qualifiers_.Enumerate(shared_from_this(), kVisitsAllAndPasses, callback);
}

boost::shared_ptr<ICIMQualifier> TInmemParameterDecl::GetQualifier(const std::string&, bool&,
                                                                   TCIMContext) const {
  throw Failure::NotSupported();
}

void TInmemParameterDecl::Validate(TCIMContext) {}

void TInmemParameterDecl::AddToMethod(TCIMContext) {
  method_.lock()->AddParameterDecl(shared_from_this());
}

boost::shared_ptr<ICIMMethodDecl> TInmemParameterDecl::GetMethodDecl(TCIMContext) const {
  return method_.lock();
}

TCIMValue::TCIMType TInmemParameterDecl::GetType(TCIMContext) const { return type_; }

bool TInmemParameterDecl::IsArray(TCIMContext) const { return value_.IsArray(); }

}  // namespace NZELVYR20

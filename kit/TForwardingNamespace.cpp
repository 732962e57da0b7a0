#include "TForwardingNamespace.h"

#include "NamedRefusal.h"

namespace NZELVYR20 {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

TForwardingNamespace::TForwardingNamespace(const TNamespacePtr& nameSpace)
    : namespace_(Given(nameSpace, "forwarding", "namespace")) {}

boost::shared_ptr<INamespaceProvider> TForwardingNamespace::GetNamespaceProvider(
    TCIMContext context) {
  return namespace_->GetNamespaceProvider(context);
}

void TForwardingNamespace::SetUpcallNamespace(TNamespacePtr nameSpace, TCIMContext context) {
  namespace_->SetUpcallNamespace(nameSpace, context);
}

void TForwardingNamespace::AddUnderlyingNamespace(TNamespacePtr nameSpace, TCIMContext context) {
  namespace_->AddUnderlyingNamespace(nameSpace, context);
}

boost::shared_ptr<ICIMClass> TForwardingNamespace::AllocateClass(
    const std::string& name, boost::shared_ptr<ICIMClass> superClass, TCIMContext context) {
  return namespace_->AllocateClass(name, superClass, context);
}

boost::shared_ptr<ICIMClass> TForwardingNamespace::GetClass(const std::string& name,
                                                            TCIMContext context) {
  return namespace_->GetClass(name, context);
}

void TForwardingNamespace::EnumerateRootClasses(const TCIMClassCallback& callback,
                                                TCIMContext context) {
  namespace_->EnumerateRootClasses(callback, context);
}

void TForwardingNamespace::EnumerateProviders(const TCIMProviderCallback& callback,
                                              TCIMContext context) {
  namespace_->EnumerateProviders(callback, context);
}

boost::shared_ptr<ICIMQualifierDecl> TForwardingNamespace::AllocateQualifierDecl(
    const std::string& name, const TCIMValue& defaultValue, ICIMQualifierDecl::EScope scope,
    ICIMQualifierDecl::EFlavor flavor, TCIMContext context) {
  return namespace_->AllocateQualifierDecl(name, defaultValue, scope, flavor, context);
}

boost::shared_ptr<ICIMQualifierDecl> TForwardingNamespace::GetQualifierDecl(const std::string& name,
                                                                            TCIMContext context) {
  return namespace_->GetQualifierDecl(name, context);
}

void TForwardingNamespace::EnumerateQualifierDecls(const TCIMQualifierDeclCallback& callback,
                                                   TCIMContext context) {
  namespace_->EnumerateQualifierDecls(callback, context);
}

void TForwardingNamespace::Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                                     const TCIMInstanceCallback& callback, TCIMContext context) {
  namespace_->Subscribe(filter, callback, context);
}

boost::shared_ptr<ICIMInstance> TForwardingNamespace::GetInstance(const TCIMReference& path,
                                                                  TCIMContext context) {
  return namespace_->GetInstance(path, context);
}

void TForwardingNamespace::DeleteInstance(const TCIMReference& path, TCIMContext context) {
  namespace_->DeleteInstance(path, context);
}

void TForwardingNamespace::ModifyInstance(const TCIMReference& path, TCIMContext newValues,
                                          TCIMContext context) {
  namespace_->ModifyInstance(path, newValues, context);
}

void TForwardingNamespace::ExecuteQuery(const TCIMInstanceCallback& callback, std::string& query,
                                        std::string& language, TCIMContext context) {
  namespace_->ExecuteQuery(callback, query, language, context);
}

void TForwardingNamespace::ClearInstances() { namespace_->ClearInstances(); }

TForwardingNamespace& TForwardingNamespace::operator=(ICIMNamespace& /*other*/) { return *this; }

}  // namespace NZELVYR20

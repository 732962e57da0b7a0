#pragma once

#include <ICIMNamespace.h>

#include <boost/shared_ptr.hpp>
#include <string>

namespace NZELVYR20 {

/// A namespace that passes everything on to another, which it holds: for a host's own namespace,
/// which overrides what it does otherwise. A path that was made for such a namespace leads where
/// that one's GetInstance says.
class TForwardingNamespace : public ICIMNamespace {
 public:
  /// Throws TKitError for an empty pointer.
  explicit TForwardingNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace);

  boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TCIMContext context) override;
  void SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> nameSpace, TCIMContext context) override;
  void AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> nameSpace,
                              TCIMContext context) override;
  boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                             boost::shared_ptr<ICIMClass> superClass,
                                             TCIMContext context) override;
  boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext context) override;
  void EnumerateRootClasses(const TCIMClassCallback& callback, TCIMContext context) override;
  void EnumerateProviders(const TCIMProviderCallback& callback, TCIMContext context) override;
  boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(const std::string& name,
                                                             const TCIMValue& defaultValue,
                                                             ICIMQualifierDecl::EScope scope,
                                                             ICIMQualifierDecl::EFlavor flavor,
                                                             TCIMContext context) override;
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                        TCIMContext context) override;
  void EnumerateQualifierDecls(const TCIMQualifierDeclCallback& callback,
                               TCIMContext context) override;
  void Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                 const TCIMInstanceCallback& callback, TCIMContext context) override;
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                              TCIMContext context) override;
  void DeleteInstance(const TCIMReference& path, TCIMContext context) override;
  void ModifyInstance(const TCIMReference& path, TCIMContext newValues,
                      TCIMContext context) override;
  void ExecuteQuery(const TCIMInstanceCallback& callback, std::string& query, std::string& language,
                    TCIMContext context) override;
  void ClearInstances() override;
  /// Copies nothing.
  TForwardingNamespace& operator=(ICIMNamespace& other) override;

 private:
  const boost::shared_ptr<ICIMNamespace> namespace_;
};

}  // namespace NZELVYR20

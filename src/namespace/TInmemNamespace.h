#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>
#include <utility>
#include <vector>

#include "ICIMNamespace.h"
#include "TNameTable.h"

namespace NZELVYR20 {

class TInmemClass;
class TInmemQualifierDecl;
class TResolution;

/// A namespace that lives in memory: the registry of its classes and qualifier declarations.
class TInmemNamespace : public ICIMNamespace,
                        public boost::enable_shared_from_this<TInmemNamespace> {
 public:
  /// The name of the class at the top of every namespace.
  static const char* const kRootClassName;

  /// With `allowRedefinition`, adding a class or a qualifier declaration whose name is taken
  /// replaces the earlier one. The namespace must be owned by a shared pointer before Initialize.
  explicit TInmemNamespace(bool allowRedefinition);
  TInmemNamespace(const TInmemNamespace&) = delete;
  ~TInmemNamespace() override;

  /// Makes the root class.
  void Initialize();

  /// The rule for names: NZELVYR20::NormalizeName.
  static std::string NormalizeName(const std::string& name);

  /// The class of that name, the root class for an empty one; empty when there is none. Status 25.
  boost::shared_ptr<TInmemClass> FindClass(const std::string& name) const;

  /// Enters a class. Status 25, or 16 (logged at level 3) without redefinition; a failure changes
  /// nothing.
  void AddClass(const boost::shared_ptr<TInmemClass>& cimClass);
  /// Does nothing: a class once added stays.
  void RemoveClass(const boost::shared_ptr<TInmemClass>& cimClass);
  /// Enters a qualifier declaration, with the statuses of AddClass.
  void AddQualifierDecl(const boost::shared_ptr<TInmemQualifierDecl>& declaration);

  /// Has the innermost resolution that goes on, if one does, hear of the instances that GetInstance
  /// gives; returns the one that did before.
  TResolution* SetResolution(TResolution* resolution) {
    return std::exchange(resolution_, resolution);
  }

  boost::shared_ptr<TInmemClass> GetRootClass() const { return rootClass_; }
  bool IsRedefinitionAllowed() const { return allowRedefinition_; }

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
  ICIMNamespace& operator=(ICIMNamespace& other) override;
  TInmemNamespace& operator=(const TInmemNamespace& other);

 private:
  /// For operations that go on after the host was called, which may drop its last pointer to the
  /// namespace; empty where no pointer owns it.
  boost::shared_ptr<TInmemNamespace> Hold() { return weak_from_this().lock(); }

  boost::shared_ptr<TInmemClass> FindClassToRefresh(const std::string& name) const;
  void ReplaceClass(std::string key, const boost::shared_ptr<TInmemClass>& cimClass);
  void Track(const boost::shared_ptr<TInmemClass>& cimClass);

  TNameTable<TInmemQualifierDecl> qualifierDecls_;
  TNameTable<TInmemClass> classes_;
  boost::shared_ptr<TInmemClass> rootClass_;
  TResolution* resolution_ = nullptr;
  const bool allowRedefinition_;
  /// Every class that this namespace made and that may still be alive, in order of making, added
  /// or not, replaced or not: the destructor undoes what they hold of one another.
  std::vector<boost::weak_ptr<TInmemClass>> madeClasses_;
};

}  // namespace NZELVYR20

#pragma once

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMQualifierDecl.h"
#include "TCIMContext.h"
#include "TCIMValue.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMIndicationFilter;
class INamespaceProvider;
class IProvider;
class TCIMReference;

/// Receives one qualifier declaration of an enumeration.
using TCIMQualifierDeclCallback = boost::function<bool(boost::shared_ptr<ICIMQualifierDecl>)>;
/// Receives one provider of an enumeration.
using TCIMProviderCallback = boost::function<bool(boost::shared_ptr<IProvider>)>;

/// A namespace: the registry of classes and qualifier declarations, and the way to instances.
/// INamespaceProvider::AllocateNamespace makes it; who holds it owns it with everything in it.
///
/// Elements are made by the Allocate operation of their owner, filled, and then added by their own
/// AddTo operation, which checks them. Names are matched without regard to letter case and kept as
/// they were given. A name begins with a letter or "_" and goes on with letters, digits and "_";
/// any other is status 25, logged at level 0.
class VYR_EXPORT ICIMNamespace {
 public:
  virtual ~ICIMNamespace();

  /// The provider that made the namespace.
  virtual boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TCIMContext context) = 0;

  /// Does nothing.
  virtual void SetUpcallNamespace(boost::shared_ptr<ICIMNamespace> nameSpace,
                                  TCIMContext context) = 0;

  /// Not supported: status 1.
  virtual void AddUnderlyingNamespace(boost::shared_ptr<ICIMNamespace> nameSpace,
                                      TCIMContext context) = 0;

  /// Makes a class under a superclass, or under the root class where that is empty. The class
  /// takes over the superclass's declarations and the qualifiers that pass to subclasses. It is
  /// not added: fill it, then call its AddToNamespace. The name is not checked before that.
  /// Where a class of that name was added already, that class is returned instead, refreshed from
  /// its superclass; the superclass given here is then ignored. An empty name or "<root>" gives
  /// the root class.
  virtual boost::shared_ptr<ICIMClass> AllocateClass(const std::string& name,
                                                     boost::shared_ptr<ICIMClass> superClass,
                                                     TCIMContext context) = 0;

  /// The class of that name; the root class for "" and for exactly "<root>". Status 25 for a name
  /// that is no CIM name, status 15 (not logged) when there is no such class.
  virtual boost::shared_ptr<ICIMClass> GetClass(const std::string& name, TCIMContext context) = 0;

  /// Calls back for the classes directly below the root class, in order of addition. False ends
  /// the walk; what the callback throws is discarded.
  virtual void EnumerateRootClasses(const TCIMClassCallback& callback, TCIMContext context) = 0;

  /// Never calls back.
  virtual void EnumerateProviders(const TCIMProviderCallback& callback, TCIMContext context) = 0;

  /// Makes a qualifier declaration. It is not added: call its AddToNamespace. The name is not
  /// checked before that.
  virtual boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(
      const std::string& name, const TCIMValue& defaultValue, ICIMQualifierDecl::EScope scope,
      ICIMQualifierDecl::EFlavor flavor, TCIMContext context) = 0;

  /// The declaration of that name; empty when there is none, where GetClass throws. Status 25 for
  /// a name that is no CIM name.
  virtual boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(const std::string& name,
                                                                TCIMContext context) = 0;

  /// Calls back for every qualifier declaration in ascending order of normalized name. The
  /// callback's result is ignored and what it throws is discarded.
  virtual void EnumerateQualifierDecls(const TCIMQualifierDeclCallback& callback,
                                       TCIMContext context) = 0;

  /// Not supported: status 1.
  virtual void Subscribe(boost::shared_ptr<ICIMIndicationFilter> filter,
                         const TCIMInstanceCallback& callback, TCIMContext context) = 0;

  /// The instance that the path names; empty when its class holds none under that path. Status 15
  /// when there is no such class, status 25 when its name is no CIM name.
  virtual boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                                      TCIMContext context) = 0;

  /// Not supported: status 1.
  virtual void DeleteInstance(const TCIMReference& path, TCIMContext context) = 0;

  /// Not supported: status 1. `newValues` maps property names to values.
  virtual void ModifyInstance(const TCIMReference& path, TCIMContext newValues,
                              TCIMContext context) = 0;

  /// Not supported: status 1.
  virtual void ExecuteQuery(const TCIMInstanceCallback& callback, std::string& query,
                            std::string& language, TCIMContext context) = 0;

  /// Empties every class of its instances; the schema stays.
  virtual void ClearInstances() = 0;

  /// Copies nothing.
  virtual ICIMNamespace& operator=(ICIMNamespace& other) = 0;
};

}  // namespace NZELVYR20

#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "TCIMContext.h"
#include "VYRExport.h"

namespace NZELVYR20 {

class ICIMNamespace;

/// A factory of namespaces, registered with INamespaceProviderManager under its name.
class VYR_EXPORT INamespaceProvider {
 public:
  virtual ~INamespaceProvider();

  /// The name under which hosts ask for this provider; the same string object on every call.
  virtual const std::string& GetName(TCIMContext context) const = 0;

  /// Makes a namespace that holds its root class and nothing else. The caller owns it; the
  /// provider keeps no record of it. With `allowRedefinition`, adding a class or a qualifier
  /// declaration whose name is taken replaces the earlier one instead of failing.
  virtual boost::shared_ptr<ICIMNamespace> AllocateNamespace(TCIMContext context,
                                                             bool allowRedefinition) const = 0;

  /// A number of the host's enumeration of provider types; 2 for namespaces held in memory.
  virtual int GetType(TCIMContext context) const = 0;

  /// Whether ICIMNamespace::Subscribe can be used.
  virtual bool IsIndicationsSupported(TCIMContext context) const = 0;
};

}  // namespace NZELVYR20

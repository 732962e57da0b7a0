#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "INamespaceProvider.h"
#include "TVYRStatusCode.h"

namespace NZELVYR20 {

/// The provider "inmem", one per process. It holds nothing: every namespace that it makes belongs
/// to whoever asked for it.
class TInmemNamespaceProvider : public INamespaceProvider {
 public:
  /// Registers the provider with the host's manager; always status 0. The manager must exist.
  static TVYRStatusCode Initialize();

  static boost::shared_ptr<TInmemNamespaceProvider> GetInstance();

  const std::string& GetName(TCIMContext context) const override;
  boost::shared_ptr<ICIMNamespace> AllocateNamespace(TCIMContext context,
                                                     bool allowRedefinition) const override;
  int GetType(TCIMContext context) const override;
  bool IsIndicationsSupported(TCIMContext context) const override;
};

}  // namespace NZELVYR20

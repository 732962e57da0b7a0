#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "VYRExport.h"

namespace NZELVYR20 {

class INamespaceProvider;

/// Knows the namespace providers of the process. Providers enter when their library is loaded.
class VYR_EXPORT INamespaceProviderManager {
 public:
  virtual ~INamespaceProviderManager();

  /// Enters a provider under its name and keeps it for the life of the process. A later provider
  /// of the same name takes the place of the earlier one.
  virtual void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) = 0;

  /// The provider of that very name (letter case counts); empty when there is none.
  virtual boost::shared_ptr<INamespaceProvider> FindNamespaceProvider(const std::string& name) = 0;

  /// The names of all providers, ascending.
  virtual std::vector<std::string> GetNamespaceProviderNames() = 0;
};

}  // namespace NZELVYR20

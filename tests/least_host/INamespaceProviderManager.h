#pragma once

#include <boost/shared_ptr.hpp>

namespace NZELVYR20 {

class INamespaceProvider;

class INamespaceProviderManager {
 public:
  virtual ~INamespaceProviderManager();
  virtual void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) = 0;
};

}  // namespace NZELVYR20

#pragma once

#include <map>
#include <mutex>

#include "INamespaceProviderManager.h"

namespace NZELVYR20 {

/// The provider manager of the process. All operations may be called from any thread; a provider
/// is never called, nor let go of, under the lock.
class TNamespaceProviderManager : public INamespaceProviderManager {
 public:
  /// Throws std::invalid_argument for an empty pointer.
  void RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider> provider) override;

  boost::shared_ptr<INamespaceProvider> FindNamespaceProvider(const std::string& name) override;

  std::vector<std::string> GetNamespaceProviderNames() override;

 private:
  std::mutex mutex_;
  std::map<std::string, boost::shared_ptr<INamespaceProvider>> providers_;
};

}  // namespace NZELVYR20

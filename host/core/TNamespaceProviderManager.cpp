#include "TNamespaceProviderManager.h"

#include <stdexcept>

#include "INamespaceProvider.h"

namespace NZELVYR20 {

void TNamespaceProviderManager::RegisterNamespaceProvider(
    boost::shared_ptr<INamespaceProvider> provider) {
  if (!provider) throw std::invalid_argument("no namespace provider was given to be registered");
  const std::string name = provider->GetName({});
  const std::lock_guard<std::mutex> lock(mutex_);
  // The parameter takes over an earlier provider and outlives the lock.
  providers_[name].swap(provider);
}

boost::shared_ptr<INamespaceProvider> TNamespaceProviderManager::FindNamespaceProvider(
    const std::string& name) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto entry = providers_.find(name);
  return entry == providers_.end() ? nullptr : entry->second;
}

std::vector<std::string> TNamespaceProviderManager::GetNamespaceProviderNames() {
  const std::lock_guard<std::mutex> lock(mutex_);
  std::vector<std::string> names;
  names.reserve(providers_.size());
  for (const auto& entry : providers_) names.push_back(entry.first);
  return names;
}

}  // namespace NZELVYR20

#include <cstdio>
#include <mutex>
#include <vector>

#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TRootObject.h"
#include "UseNamespace.h"

namespace {

/// Namespaces kept until this library goes: where it came before the plug-in, they outlive the
/// plug-in's own statics.
std::vector<boost::shared_ptr<NZELVYR20::ICIMNamespace>> kept;
std::mutex keptMutex;

}  // namespace

/// Makes, uses and keeps a namespace. False, with the reason on standard error, where something is
/// not as it should be.
extern "C" VYR_EXPORT bool UseRepository() {
  try {
    const auto manager = NZELVYR20::TRootObject::GetNamespaceProviderManager();
    const auto space = manager->FindNamespaceProvider("inmem")->AllocateNamespace({}, false);
    const std::string seen = NZELVYR20::UseNamespace(space);
    const std::lock_guard<std::mutex> lock(keptMutex);
    kept.push_back(space);
    if (seen != NZELVYR20::kAllIsWell) std::fprintf(stderr, "%s", seen.c_str());
    return seen == NZELVYR20::kAllIsWell;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return false;
  }
}

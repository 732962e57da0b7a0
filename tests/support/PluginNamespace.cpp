#include "PluginNamespace.h"

#include <dlfcn.h>

#include <stdexcept>

#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "TRootObject.h"

namespace NZELVYR20 {

boost::shared_ptr<ICIMNamespace> AllocatePluginNamespace(bool allowRedefinition) {
  static void* const library = dlopen(INMEM_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return TRootObject::GetNamespaceProviderManager()
      ->FindNamespaceProvider("inmem")
      ->AllocateNamespace({}, allowRedefinition);
}

}  // namespace NZELVYR20

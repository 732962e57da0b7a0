#include "PluginNamespace.h"
#include "TInmemNamespaceProvider.h"

namespace NZELVYR20 {

/// In this program the plug-in is linked.
boost::shared_ptr<ICIMNamespace> AllocatePluginNamespace(bool allowRedefinition) {
  return TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, allowRedefinition);
}

}  // namespace NZELVYR20

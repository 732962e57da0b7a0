#include "TInmemNamespaceProvider.h"

#include "INamespaceProviderManager.h"
#include "TInmemNamespace.h"
#include "TRootObject.h"

namespace NZELVYR20 {

TVYRStatusCode TInmemNamespaceProvider::Initialize() {
  TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(GetInstance());
  return TVYRStatusCode::kSuccess;
}

boost::shared_ptr<TInmemNamespaceProvider> TInmemNamespaceProvider::GetInstance() {
  static const boost::shared_ptr<TInmemNamespaceProvider> instance(new TInmemNamespaceProvider);
  return instance;
}

const std::string& TInmemNamespaceProvider::GetName(TCIMContext) const {
  static const std::string name("inmem");
  return name;
}

boost::shared_ptr<ICIMNamespace> TInmemNamespaceProvider::AllocateNamespace(
    TCIMContext, bool allowRedefinition) const {
  const boost::shared_ptr<TInmemNamespace> nameSpace(new TInmemNamespace(allowRedefinition));
  nameSpace->Initialize();
  return nameSpace;
}

int TInmemNamespaceProvider::GetType(TCIMContext) const {
  constexpr int kInMemory = 2;
  return kInMemory;
}

bool TInmemNamespaceProvider::IsIndicationsSupported(TCIMContext) const { return false; }

}  // namespace NZELVYR20

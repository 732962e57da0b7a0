#include "Repository.h"

#include <ICIMQualifier.h>
#include <INamespaceProvider.h>
#include <INamespaceProviderManager.h>
#include <TRootObject.h>
#include <dlfcn.h>

#include <stdexcept>

namespace examples {
namespace {

using TDecl = vyr::ICIMQualifierDecl;
using TType = vyr::TCIMValue::TCIMType;

void DeclareQualifier(vyr::ICIMNamespace& nameSpace, const std::string& name,
                      const vyr::TCIMValue& defaultValue) {
  nameSpace.AllocateQualifierDecl(name, defaultValue, TDecl::kAny, TDecl::kToSubclass, {})
      ->AddToNamespace({});
}

}  // namespace

boost::shared_ptr<vyr::ICIMNamespace> OpenNamespace() {
  // Loading registers the provider. Never close the library: the provider stays registered.
  if (dlopen(PLUGIN_PATH, RTLD_NOW) == nullptr) throw std::runtime_error(dlerror());
  const auto provider =
      vyr::TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider("inmem");
  if (!provider) throw std::runtime_error("no provider \"inmem\" in " PLUGIN_PATH);

  auto nameSpace = provider->AllocateNamespace({}, false);
  for (const char* name : {"Abstract", "Association", "Key"}) {
    DeclareQualifier(*nameSpace, name, false);
  }
  DeclareQualifier(*nameSpace, "Units", vyr::TCIMValue::Null(TType::kString));
  DeclareQualifier(*nameSpace, "ValueMap", vyr::TCIMValue::Null(TType::kStringArray));
  DeclareQualifier(*nameSpace, "Values", vyr::TCIMValue::Null(TType::kStringArray));
  return nameSpace;
}

void Qualify(vyr::ICIMNamespace& nameSpace, vyr::ICIMNamedElement& element, const std::string& name,
             const vyr::TCIMValue& value) {
  element.AllocateQualifier(nameSpace.GetQualifierDecl(name, {}), value, {})
      ->AddToClassOrProperty({});
}

}  // namespace examples

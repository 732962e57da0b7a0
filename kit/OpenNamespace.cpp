#include "OpenNamespace.h"

#include <INamespaceProviderManager.h>
#include <TRootObject.h>
#include <dlfcn.h>
#include <link.h>

#include <filesystem>
#include <system_error>
#include <typeinfo>

#include "FindInstalled.h"
#include "TKitError.h"

namespace NZELVYR20 {
namespace {

const std::string kPluginName = "libinmem.nsp.so";
const std::string kProviderName = "inmem";

using TPath = std::optional<std::string>;
using TProvider = boost::shared_ptr<INamespaceProvider>;

std::string FindDefaultPlugin() {
  return FindInstalled({kPluginName, "../lib/vyr/" + kPluginName}).value_or(kPluginName);
}

/// With a slash in it dlopen takes a name for a file, else it searches the library path.
std::string FindPlugin(const std::string& path) {
  const std::string file = path.find('/') == std::string::npos ? "./" + path : path;
  std::error_code ignored;
  return std::filesystem::exists(file, ignored) ? file : path;
}

TProvider FindProvider() {
  return TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider(kProviderName);
}

/// The file from which a library was loaded.
std::string GetFile(void* library) {
  link_map* loaded = nullptr;
  return dlinfo(library, RTLD_DI_LINKMAP, &loaded) == 0 ? loaded->l_name : "";
}

/// The file that made the provider: the description of the provider's type stands there.
std::string FindLibrary(const INamespaceProvider& provider) {
  Dl_info found = {};
  return dladdr(&typeid(provider), &found) != 0 ? found.dli_fname : "";
}

}  // namespace

TProvider LoadProvider(const TPath& path) {
  const std::string plugin = path ? FindPlugin(*path) : FindDefaultPlugin();
  const TProvider earlier = FindProvider();
  // A second copy would put its own provider in the place of the one in use: it is not even loaded.
  const int mode = RTLD_NOW | RTLD_LOCAL | (earlier ? RTLD_NOLOAD : 0);
  void* const library = dlopen(plugin.c_str(), mode);
  if (library == nullptr && !earlier) {
    throw TKitError(std::string("cannot load the plug-in: ") + dlerror());
  }
  TProvider provider = FindProvider();
  if (!provider) {
    throw TKitError(plugin + ": registers no namespace provider \"" + kProviderName + "\"");
  }
  const std::string registrant = FindLibrary(*provider);
  if (library == nullptr || registrant != GetFile(library)) {
    throw TKitError(plugin + ": the provider \"" + kProviderName + "\" is that of " + registrant);
  }
  return provider;
}

boost::shared_ptr<ICIMNamespace> OpenNamespace(const TPath& path) {
  return LoadProvider(path)->AllocateNamespace({}, false);
}

}  // namespace NZELVYR20

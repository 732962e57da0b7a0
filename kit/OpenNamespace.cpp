#include "OpenNamespace.h"

#include <INamespaceProviderManager.h>
#include <TRootObject.h>
#include <dlfcn.h>

#include <filesystem>
#include <system_error>

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

}  // namespace

TProvider LoadProvider(const TPath& path) {
  const std::string plugin = path ? FindPlugin(*path) : FindDefaultPlugin();
  const TProvider earlier = FindProvider();
  if (dlopen(plugin.c_str(), RTLD_NOW | RTLD_LOCAL) == nullptr) {
    throw TKitError(std::string("cannot load the plug-in: ") + dlerror());
  }
  TProvider provider = FindProvider();
  if (!provider) {
    throw TKitError(plugin + ": registers no namespace provider \"" + kProviderName + "\"");
  }
  if (earlier && earlier != provider) {
    TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(earlier);
    throw TKitError(plugin + ": another copy of the plug-in is loaded already");
  }
  return provider;
}

boost::shared_ptr<ICIMNamespace> OpenNamespace(const TPath& path) {
  return LoadProvider(path)->AllocateNamespace({}, false);
}

}  // namespace NZELVYR20

#include "OpenNamespace.h"

#include <INamespaceProviderManager.h>
#include <TRootObject.h>
#include <dlfcn.h>

#include <filesystem>
#include <system_error>
#include <utility>

#include "TKitError.h"

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

const std::string kPluginName = "libinmem.nsp.so";
const std::string kProviderName = "inmem";

using TPath = std::optional<std::string>;
using TProvider = boost::shared_ptr<INamespaceProvider>;

fs::path GetProgramFolder() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

/// Where the core library was loaded from.
fs::path GetCoreFolder() {
  Dl_info core = {};
  const auto* const inside = reinterpret_cast<const void*>(&TRootObject::GetCoreLogger);
  if (dladdr(inside, &core) == 0 || core.dli_fname == nullptr) return {};
  return fs::path(core.dli_fname).parent_path();
}

std::string FindDefaultPlugin() {
  const fs::path program = GetProgramFolder();
  const fs::path core = GetCoreFolder();
  for (const fs::path& folder : {program, program / "../lib/vyr", core / "vyr", core}) {
    std::error_code ignored;
    if (folder.is_absolute() && fs::exists(folder / kPluginName, ignored)) {
      return (folder / kPluginName).lexically_normal().string();
    }
  }
  return kPluginName;
}

/// With a slash in it dlopen takes a name for a file, else it searches the library path.
std::string FindPlugin(const std::string& path) {
  const std::string file = path.find('/') == std::string::npos ? "./" + path : path;
  std::error_code ignored;
  return fs::exists(file, ignored) ? file : path;
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

#include "TPluginLoader.h"

#include <dlfcn.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "INamespaceProviderManager.h"
#include "TCommandError.h"
#include "TProgramFolder.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

const std::string kPluginName = "libinmem.nsp.so";
const std::string kProviderName = "inmem";

std::string FindDefaultPlugin() {
  return TProgramFolder::Find({kPluginName, "../lib/vyr/" + kPluginName}).value_or(kPluginName);
}

/// With a slash in it dlopen takes a name for a file, else it searches the library path.
std::string FindPlugin(const std::string& path) {
  const std::string file = path.find('/') == std::string::npos ? "./" + path : path;
  std::error_code ignored;
  return std::filesystem::exists(file, ignored) ? file : path;
}

void Load(const std::string& plugin) {
  if (dlopen(plugin.c_str(), RTLD_NOW | RTLD_LOCAL) == nullptr) {
    throw TCommandError(std::string("cannot load the plug-in: ") + dlerror());
  }
}

}  // namespace

boost::shared_ptr<INamespaceProvider> TPluginLoader::LoadProvider(
    const std::optional<std::string>& path) {
  const std::string plugin = path ? FindPlugin(*path) : FindDefaultPlugin();
  Load(plugin);
  auto provider = TRootObject::GetNamespaceProviderManager()->FindNamespaceProvider(kProviderName);
  if (!provider) {
    throw TCommandError(plugin + ": registers no namespace provider \"" + kProviderName + "\"");
  }
  return provider;
}

}  // namespace NZELVYR20

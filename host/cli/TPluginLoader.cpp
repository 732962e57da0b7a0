#include "TPluginLoader.h"

#include <dlfcn.h>

#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

#include "INamespaceProviderManager.h"
#include "TCommandError.h"
#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

const std::string kPluginName = "libinmem.nsp.so";
const std::string kProviderName = "inmem";

/// With a slash in it dlopen takes a name for a file, else it searches the library path.
std::string FileOrLibraryName(const std::filesystem::path& file, const std::string& libraryName) {
  std::error_code ignored;
  return std::filesystem::exists(file, ignored) ? file.string() : libraryName;
}

std::string FindDefaultPlugin() {
  std::error_code ignored;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  return FileOrLibraryName(program.parent_path() / kPluginName, kPluginName);
}

std::string FindPlugin(const std::string& path) {
  return FileOrLibraryName(path.find('/') == std::string::npos ? "./" + path : path, path);
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

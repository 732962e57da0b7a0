#include "FindInstalled.h"

#include <TRootObject.h>
#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace NZELVYR20 {
namespace {

namespace fs = std::filesystem;

fs::path GetProgramFolder() {
  std::error_code ignored;
  return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

fs::path GetCoreFolder() {
  Dl_info core = {};
  const auto* const inside = reinterpret_cast<const void*>(&TRootObject::GetCoreLogger);
  if (dladdr(inside, &core) == 0 || core.dli_fname == nullptr) return {};
  std::error_code ignored;
  return fs::canonical(core.dli_fname, ignored).parent_path();
}

}  // namespace

std::optional<std::string> FindInstalled(std::initializer_list<std::string> files) {
  for (const fs::path& folder : {GetProgramFolder(), GetCoreFolder()}) {
    for (const std::string& file : files) {
      const fs::path path = (folder / file).lexically_normal();
      std::error_code ignored;
      if (path.is_absolute() && fs::exists(path, ignored)) return path.string();
    }
  }
  return std::nullopt;
}

}  // namespace NZELVYR20

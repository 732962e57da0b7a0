#include "TProgramFolder.h"

#include <filesystem>
#include <system_error>

namespace NZELVYR20 {

std::optional<std::string> TProgramFolder::Find(std::initializer_list<std::string> files) {
  std::error_code error;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
  if (error) return {};
  for (const std::string& file : files) {
    const auto path = (program.parent_path() / file).lexically_normal();
    if (std::filesystem::exists(path, error)) return path.string();
  }
  return {};
}

}  // namespace NZELVYR20

#include "BlockDeviceText.h"

#include <algorithm>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::uint64_t kSectorSize = 512;
constexpr std::string_view kDeviceFolder = "/dev/";

}  // namespace

std::optional<TExtentSize> ParseExtentSize(std::string_view sectors, std::string_view blockSize) {
  const std::optional<std::uint64_t> bytes = Multiply(ParseUnsigned(sectors), kSectorSize);
  if (!bytes || *bytes == 0) return std::nullopt;
  TExtentSize size;
  size.blockSize = std::max(ParseUnsigned(blockSize).value_or(kSectorSize), kSectorSize);
  size.blocks = *bytes / size.blockSize;
  return size;
}

std::uint16_t ParseDiskType(std::string_view rotational) {
  if (rotational == "1") return 2;
  return rotational == "0" ? 3 : 0;
}

std::optional<std::uint16_t> ParseDriveState(std::string_view state) {
  if (state.empty()) return std::nullopt;
  if (state == "running" || state == "live") return 2;
  return state == "offline" || state == "dead" ? 6 : 1;
}

std::string GetDeviceFile(const std::string& name) {
  std::string path = std::string(kDeviceFolder) + name;
  std::replace(path.begin(), path.end(), '!', '/');
  return path;
}

std::string GetDeviceName(const std::string& deviceFile) {
  if (deviceFile.compare(0, kDeviceFolder.size(), kDeviceFolder) != 0) return {};
  std::string name = deviceFile.substr(kDeviceFolder.size());
  std::replace(name.begin(), name.end(), '/', '!');
  return name;
}

}  // namespace NZELVYR20

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// The size of a device in its own blocks.
struct TExtentSize {
  std::uint64_t blockSize = 512;
  std::uint64_t blocks = 0;
};

/// From the files "size", which always counts 512 bytes, and "logical_block_size", which may be
/// missing; nothing where the size is not known, is 0 or does not fit.
std::optional<TExtentSize> ParseExtentSize(std::string_view sectors, std::string_view blockSize);

/// The standard's DiskType for the file "rotational".
std::uint16_t ParseDiskType(std::string_view rotational);

/// The standard's OperationalStatus for the file "device/state"; nothing where there is none.
std::optional<std::uint16_t> ParseDriveState(std::string_view state);

/// The device file of a name in /sys/block, in which "!" stands for "/".
std::string GetDeviceFile(const std::string& name);
/// The name in /sys/block for a device file; empty for any other path.
std::string GetDeviceName(const std::string& deviceFile);

}  // namespace NZELVYR20

#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// One line of /proc/mounts.
struct TMount {
  std::string source;
  std::string mountPoint;
  std::string type;
  bool isReadOnly = false;
  std::string subvolume;  ///< such as "/@home": the part of the file system that is mounted
};

/// Reads the lines in order and undoes their octal escapes; a line that is cut off is skipped.
std::vector<TMount> ParseMounts(std::string_view text);

/// The types that /proc/filesystems marks as standing on no block device.
std::set<std::string> ParseTypesWithoutDevice(std::string_view text);

/// A file system as it is worth showing.
struct TFileSystemFacts {
  enum EKind { kOnDevice, kInMemory, kLayered, kRemote };

  TMount mount;
  EKind kind = kOnDevice;
  /// Whether asking for its size may wait for an answer that never comes: another computer, or a
  /// user's process, has to give it, or is passed on the way to the mount point.
  bool mayHang = false;
};

/// Selects from the mounts what holds files of people and programs:
/// - all on a block device, and zfs, ubifs, tmpfs and overlays, which "nodev" would hide;
/// - file systems that another computer serves;
/// - nothing else that has no device, and nothing below /proc and /sys: those show, or hide, the
///   kernel's own data.
/// Of mounts at the same place only the last is seen. A device may show in several places, each
/// with a part of it.
std::vector<TFileSystemFacts> SelectFileSystems(const std::vector<TMount>& mounts,
                                                const std::set<std::string>& typesWithoutDevice);

}  // namespace NZELVYR20

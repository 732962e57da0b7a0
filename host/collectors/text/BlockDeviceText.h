#pragma once

#include <cstdint>
#include <optional>
#include <set>
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

/// Such as "465.8 GiB (500107862016 bytes)".
std::string DescribeSize(std::uint64_t bytes);

/// The standard's DiskType for the file "rotational".
std::uint16_t ParseDiskType(std::string_view rotational);

/// The standard's class for a drive, such as "CIM_CDROMDrive". By its name in /sys/block, the SCSI
/// type in "device/type", and the names of those that read DVDs.
std::string FindDriveClass(std::string_view name, std::string_view scsiType,
                           const std::set<std::string>& dvdDrives);

/// The names in /proc/sys/dev/cdrom/info of the drives that read DVDs.
std::set<std::string> ParseDvdDrives(std::string_view text);

/// What the device mapper made, by the file "dm/uuid", such as "Logical volume".
std::string ParseMapperKind(std::string_view uuid);

/// How an array of disks does, in the standard's numbers and in words.
struct TArrayState {
  std::uint16_t operationalStatus = 0;
  std::uint16_t healthState = 0;
  std::string description;
};

/// From the files "array_state", "degraded", "raid_disks" and "sync_action" in "md".
TArrayState ParseArrayState(std::string_view state, std::string_view degraded,
                            std::string_view members, std::string_view action);

/// The standard's OperationalStatus of a disk in an array, by its files "state", such as
/// "in_sync,write_mostly", and "slot".
std::uint16_t ParseMemberState(std::string_view state, std::string_view slot);

/// The name of the disk for one of the paths to it, such as "nvme0n1" for "nvme0c1n1"; empty for
/// what is no such path.
std::string FindDiskOfPath(std::string_view name);

/// The standard's HealthState for the file "pre_eol_info" of a memory card.
std::optional<std::uint16_t> ParseWear(std::string_view endOfLife);

/// How much of its life such a card has used at most, by the file "life_time": "30 %".
std::string DescribeLifeTime(std::string_view lifeTime);

/// The standard's OperationalStatus for the file "device/state"; nothing where there is none.
std::optional<std::uint16_t> ParseDriveState(std::string_view state);

/// The device file of a name in /sys/block, in which "!" stands for "/".
std::string GetDeviceFile(const std::string& name);
/// The name in /sys/block for a device file; empty for any other path.
std::string GetDeviceName(const std::string& deviceFile);

/// The devices that hold swap space: the lines of /proc/swaps. A name of the device mapper's is the
/// kernel's own there.
std::set<std::string> ParseSwaps(std::string_view text);

/// By which bus a drive is reached, such as "SATA": what the link to its folder leads through.
/// Empty where that does not tell.
std::string FindBus(std::string_view link);

}  // namespace NZELVYR20

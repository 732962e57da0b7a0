#include "BlockDeviceText.h"

#include <algorithm>
#include <array>
#include <utility>

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

std::string DescribeSize(std::uint64_t bytes) {
  constexpr std::array<std::string_view, 6> kPrefixes = {"Ki", "Mi", "Gi", "Ti", "Pi", "Ei"};
  std::string plain = std::to_string(bytes) + " bytes";
  std::size_t prefix = 0;
  std::uint64_t unit = 1024;
  while (bytes / unit >= 1024) {
    unit *= 1024;
    ++prefix;
  }
  if (bytes < unit) return plain;
  const std::uint64_t tenths = bytes / (unit / 1024) * 10 / 1024;
  return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + ' ' +
         std::string(kPrefixes[prefix]) + "B (" + plain + ')';
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

std::string FindDriveClass(std::string_view name, std::string_view scsiType,
                           const std::set<std::string>& dvdDrives) {
  constexpr std::string_view kOptical = "5";
  const auto isNumbered = [name](std::string_view prefix) {
    return name.substr(0, prefix.size()) == prefix && ParseUnsigned(name.substr(prefix.size()));
  };
  if (isNumbered("fd")) return "CIM_DisketteDrive";
  if (scsiType != kOptical && !isNumbered("sr") && !isNumbered("scd")) return "CIM_DiskDrive";
  return dvdDrives.count(std::string(name)) > 0 ? "CIM_DVDDrive" : "CIM_CDROMDrive";
}

std::set<std::string> ParseDvdDrives(std::string_view text) {
  std::vector<std::string_view> names;
  std::vector<std::string_view> answers;
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> field = SplitField(line, ':');
    if (field && field->name == "drive name") names = SplitWords(field->value);
    if (field && field->name == "Can read DVD") answers = SplitWords(field->value);
  }
  std::set<std::string> drives;
  for (std::size_t i = 0; i < std::min(names.size(), answers.size()); ++i) {
    if (answers[i] == "1") drives.emplace(names[i]);
  }
  return drives;
}

std::string ParseMapperKind(std::string_view uuid) {
  using TRow = std::pair<std::string_view, const char*>;
  static constexpr std::array<TRow, 4> kKinds = {{{"LVM", "Logical volume"},
                                                  {"mpath", "Disk with several paths"},
                                                  {"part", "Partition"},
                                                  {"DMRAID", "Array of disks"}}};
  constexpr std::string_view kCrypt = "CRYPT-";
  if (uuid.substr(0, kCrypt.size()) == kCrypt) {
    const std::string_view rest = uuid.substr(kCrypt.size());
    const std::string kind(rest.substr(0, rest.find('-')));
    return kind == "VERITY" ? "Verified volume" : "Encrypted volume (" + kind + ')';
  }
  for (const auto& [prefix, kind] : kKinds) {
    if (uuid.substr(0, prefix.size()) == prefix) return kind;
  }
  return {};
}

TArrayState ParseArrayState(std::string_view state, std::string_view degraded,
                            std::string_view members, std::string_view action) {
  constexpr std::uint16_t kOK = 2;
  constexpr std::uint16_t kDegraded = 3;
  constexpr std::uint16_t kFailed = 6;
  constexpr std::uint16_t kStopped = 10;
  const std::uint64_t missing = ParseUnsigned(degraded).value_or(0);
  const bool isIdle = action.empty() || action == "idle" || action == "none";
  std::string text(state);
  if (missing > 0) {
    text += "; " + std::to_string(missing) + " of " + std::string(members) + " disks missing";
  }
  if (!isIdle) text += "; " + std::string(action);
  if (state == "broken") return {kFailed, 25, text};
  if (state == "inactive" || state == "clear") return {kStopped, 0, text};
  return missing > 0 ? TArrayState{kDegraded, 10, text} : TArrayState{kOK, 5, text};
}

std::uint16_t ParseMemberState(std::string_view state, std::string_view slot) {
  constexpr std::uint16_t kUnusual = 1;
  constexpr std::uint16_t kOK = 2;
  constexpr std::uint16_t kError = 6;
  constexpr std::uint16_t kInService = 11;
  constexpr std::uint16_t kDormant = 15;
  const auto has = [state](std::string_view word) {
    return state.find(word) != std::string_view::npos;
  };
  if (has("faulty")) return kError;
  if (has("in_sync")) return kOK;
  if (!has("spare")) return kUnusual;
  // One with a place in the array is being filled.
  return ParseUnsigned(slot) ? kInService : kDormant;
}

std::string FindDiskOfPath(std::string_view name) {
  constexpr std::string_view kDigits = "0123456789";
  constexpr std::string_view kKind = "nvme";
  if (name.substr(0, kKind.size()) != kKind) return {};
  const std::size_t path = name.find_first_not_of(kDigits, kKind.size());
  if (path == std::string_view::npos || name[path] != 'c') return {};
  const std::size_t space = name.find_first_not_of(kDigits, path + 1);
  if (space == std::string_view::npos || name[space] != 'n') return {};
  return std::string(name.substr(0, path)).append(name.substr(space));
}

std::optional<std::uint16_t> ParseWear(std::string_view endOfLife) {
  static constexpr std::array<std::pair<std::string_view, std::uint16_t>, 3> kWear = {
      {{"0x01", 5}, {"0x02", 10}, {"0x03", 25}}};
  for (const auto& [text, state] : kWear) {
    if (text == endOfLife) return state;
  }
  return std::nullopt;
}

std::string DescribeLifeTime(std::string_view lifeTime) {
  constexpr std::uint64_t kTenths = 10;
  std::uint64_t most = 0;
  for (const std::string_view word : SplitWords(lifeTime)) {
    if (word.substr(0, 2) != "0x") return {};
    most = std::max(most, ParseUnsigned(word.substr(2), kHexadecimal).value_or(0));
  }
  if (most > kTenths) return "More than 100 %";
  return most == 0 ? std::string() : std::to_string(most * kTenths) + " %";
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

std::set<std::string> ParseSwaps(std::string_view text) {
  std::set<std::string> names;
  for (const std::string_view line : SplitLines(text)) {
    const std::vector<std::string_view> words = SplitWords(line);
    if (words.size() > 1 && words[1] == "partition") {
      names.insert(GetDeviceName(std::string(words[0])));
    }
  }
  return names;
}

std::string FindBus(std::string_view link) {
  // A disk on USB is on SCSI, too: the first that fits counts.
  static constexpr std::array<std::pair<std::string_view, const char*>, 8> kBuses = {
      {{"/usb", "USB"},
       {"/nvme", "NVMe"},
       {"/virtio", "virtio"},
       {"/ata", "SATA"},
       {"/mmc", "MMC"},
       {"/vbd-", "Xen"},
       {"/session", "iSCSI"},
       {"/host", "SCSI"}}};
  for (const auto& [part, name] : kBuses) {
    if (link.find(part) != std::string_view::npos) return name;
  }
  return {};
}

}  // namespace NZELVYR20

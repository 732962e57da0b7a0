#include "MountText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

struct TTypeRow {
  std::string_view type;
  TFileSystemFacts::EKind kind;
};

/// Types that /proc/filesystems does not tell apart from those of the kernel's own data.
constexpr std::array<TTypeRow, 20> kKnownTypes = {{
    {"tmpfs", TFileSystemFacts::kInMemory},
    {"ramfs", TFileSystemFacts::kInMemory},
    {"overlay", TFileSystemFacts::kLayered},
    {"aufs", TFileSystemFacts::kLayered},
    {"zfs", TFileSystemFacts::kOnDevice},
    {"ubifs", TFileSystemFacts::kOnDevice},
    {"jffs2", TFileSystemFacts::kOnDevice},
    {"nfs", TFileSystemFacts::kRemote},
    {"nfs4", TFileSystemFacts::kRemote},
    {"cifs", TFileSystemFacts::kRemote},
    {"smb3", TFileSystemFacts::kRemote},
    {"smbfs", TFileSystemFacts::kRemote},
    {"9p", TFileSystemFacts::kRemote},
    {"afs", TFileSystemFacts::kRemote},
    {"ceph", TFileSystemFacts::kRemote},
    {"lustre", TFileSystemFacts::kRemote},
    {"virtiofs", TFileSystemFacts::kRemote},
    {"fuse.sshfs", TFileSystemFacts::kRemote},
    {"fuse.glusterfs", TFileSystemFacts::kRemote},
    {"fuse.s3fs", TFileSystemFacts::kRemote},
}};

bool IsServedByProcess(const std::string& type) { return type.rfind("fuse", 0) == 0; }

/// Whether the path lies at or below the folder.
bool IsWithin(const std::string& path, const std::string& folder) {
  if (folder == "/") return true;
  return path.rfind(folder, 0) == 0 && (path.size() == folder.size() || path[folder.size()] == '/');
}

std::optional<TFileSystemFacts::EKind> FindKind(const TMount& mount,
                                                const std::set<std::string>& typesWithoutDevice) {
  if (IsWithin(mount.mountPoint, "/proc") || IsWithin(mount.mountPoint, "/sys")) {
    return std::nullopt;
  }
  for (const TTypeRow& row : kKnownTypes) {
    if (row.type == mount.type) return row.kind;
  }
  // The part after the dot is the program's own; the kernel's list has "fuse" and "fuseblk".
  const std::string type = mount.type.substr(0, mount.type.find('.'));
  const bool isDevice = typesWithoutDevice.empty() ? mount.source.rfind('/', 0) == 0
                                                   : typesWithoutDevice.count(type) == 0;
  return isDevice ? std::make_optional(TFileSystemFacts::kOnDevice) : std::nullopt;
}

bool IsOctal(char character) { return character >= '0' && character <= '7'; }

/// Blanks, line ends and back-slashes stand as a back-slash and three octal digits.
std::string Unescape(std::string_view word) {
  std::string text;
  for (std::size_t i = 0; i < word.size(); ++i) {
    const std::string_view digits = word.substr(i + 1, 3);
    if (word[i] != '\\' || digits.size() != 3 ||
        !std::all_of(digits.begin(), digits.end(), IsOctal)) {
      text += word[i];
      continue;
    }
    text += static_cast<char>(*ParseUnsigned(digits, 8));
    i += digits.size();
  }
  return text;
}

/// Whether it is writable, which comes first, and the options of its type.
void SetOptions(TMount& mount, std::string_view options) {
  constexpr std::string_view kSubvolume = "subvol=";
  mount.isReadOnly = options.substr(0, options.find(',')) == "ro";
  while (!options.empty()) {
    const std::string_view option = options.substr(0, options.find(','));
    options.remove_prefix(std::min(option.size() + 1, options.size()));
    if (option.substr(0, kSubvolume.size()) == kSubvolume) {
      mount.subvolume = Unescape(option.substr(kSubvolume.size()));
    }
  }
}

/// The mounts that are not hidden by a later one at the same place.
std::vector<TMount> DropHidden(const std::vector<TMount>& mounts) {
  std::vector<TMount> seen;
  std::set<std::string> places;
  for (auto mount = mounts.rbegin(); mount != mounts.rend(); ++mount) {
    if (places.insert(mount->mountPoint).second) seen.push_back(*mount);
  }
  std::reverse(seen.begin(), seen.end());
  return seen;
}

}  // namespace

std::vector<TMount> ParseMounts(std::string_view text) {
  std::vector<TMount> mounts;
  for (const std::string_view line : SplitLines(text)) {
    const std::vector<std::string_view> words = SplitWords(line);
    if (words.size() < 4) continue;
    TMount mount;
    mount.source = Unescape(words[0]);
    mount.mountPoint = Unescape(words[1]);
    mount.type = Unescape(words[2]);
    SetOptions(mount, words[3]);
    mounts.push_back(std::move(mount));
  }
  return mounts;
}

std::set<std::string> ParseTypesWithoutDevice(std::string_view text) {
  std::set<std::string> types;
  for (const std::string_view line : SplitLines(text)) {
    const std::vector<std::string_view> words = SplitWords(line);
    if (words.size() == 2 && words[0] == "nodev") types.emplace(words[1]);
  }
  return types;
}

std::vector<TFileSystemFacts> SelectFileSystems(const std::vector<TMount>& mounts,
                                                const std::set<std::string>& typesWithoutDevice) {
  std::vector<TFileSystemFacts> selected;
  std::vector<std::string> slowPlaces;
  for (const TMount& mount : DropHidden(mounts)) {
    const std::optional<TFileSystemFacts::EKind> kind = FindKind(mount, typesWithoutDevice);
    if (kind == TFileSystemFacts::kRemote || IsServedByProcess(mount.type)) {
      slowPlaces.push_back(mount.mountPoint);
    }
    if (kind) selected.push_back({mount, *kind});
  }
  for (TFileSystemFacts& facts : selected) {
    facts.mayHang = std::any_of(
        slowPlaces.begin(), slowPlaces.end(),
        [&](const std::string& place) { return IsWithin(facts.mount.mountPoint, place); });
  }
  return selected;
}

}  // namespace NZELVYR20

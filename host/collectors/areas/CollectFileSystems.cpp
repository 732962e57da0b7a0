#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <cerrno>
#include <system_error>

#include "BlockDeviceText.h"
#include "CollectAreas.h"
#include "MountText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

std::optional<std::uint16_t> GetPersistence(TFileSystemFacts::EKind kind) {
  if (kind == TFileSystemFacts::kOnDevice) return std::uint16_t{2};
  if (kind == TFileSystemFacts::kInMemory) return std::uint16_t{3};
  return std::nullopt;
}

/// Whether something is mounted there as this process sees it: else the question would be about
/// the file system on which a saved tree lies. Kernels before 5.8 do not tell.
bool IsMountPoint(const TDescriptor& place) {
  struct statx status = {};
  return statx(place.Get(), "", AT_EMPTY_PATH | AT_NO_AUTOMOUNT, STATX_TYPE, &status) == 0 &&
         (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

/// The names of the devices that one file system of the kind btrfs has.
using TPool = std::vector<std::string>;

std::vector<TPool> ListPools(const TMachineFiles& files) {
  std::vector<TPool> pools;
  const TMachineFolder folder(files, "/sys/fs/btrfs");
  for (const std::string& name : folder.GetNames()) {
    pools.push_back(folder.Enter(name).Enter("devices").GetNames());
  }
  return pools;
}

class TFileSystems {
 public:
  TFileSystems(TCollection& collection, const TExtents& extents)
      : collection_(collection), extents_(extents), pools_(ListPools(collection.GetFiles())) {}

  void Add(const TFileSystemFacts& facts);
  /// Notes what was not asked: once for all, since a machine may have many of them.
  void NoteUnmeasured();

 private:
  void SetSizes(TInstanceDraft& draft, const TFileSystemFacts& facts);
  std::optional<TCIMReference> FindExtent(const std::string& source) const;
  std::vector<TCIMReference> FindExtents(const TMount& mount) const;

  TCollection& collection_;
  const TExtents& extents_;
  std::vector<TPool> pools_;
  std::size_t slow_ = 0;
  std::size_t saved_ = 0;
};

void TFileSystems::Add(const TFileSystemFacts& facts) {
  const bool isRemote = facts.kind == TFileSystemFacts::kRemote;
  TInstanceDraft draft = collection_.DraftElement(
      isRemote ? "CIM_RemoteFileSystem" : "CIM_LocalFileSystem", facts.mount.mountPoint);
  draft.SetText("ElementName", facts.mount.source)
      .SetText("Description",
               facts.mount.subvolume.empty() ? "" : "Subvolume " + facts.mount.subvolume)
      .Set("Root", facts.mount.mountPoint)
      .Set("FileSystemType", facts.mount.type)
      .Set("ReadOnly", facts.mount.isReadOnly)
      .Set("PersistenceType", GetPersistence(facts.kind))
      .SetCode("EnabledState", 2);
  SetSizes(draft, facts);
  const std::optional<TCIMReference> path = collection_.AddPart(draft, "CIM_HostedFileSystem");
  if (!path || facts.kind != TFileSystemFacts::kOnDevice) return;
  for (const TCIMReference& extent : FindExtents(facts.mount)) {
    collection_.Link(collection_.DraftDependency("CIM_ResidesOnExtent", extent, *path));
  }
}

void TFileSystems::SetSizes(TInstanceDraft& draft, const TFileSystemFacts& facts) {
  if (facts.mayHang) {
    ++slow_;
    return;
  }
  const TDescriptor place = collection_.GetFiles().Find(facts.mount.mountPoint);
  if (!collection_.GetFiles().IsLive() && !IsMountPoint(place)) {
    ++saved_;
    return;
  }
  struct statvfs64 status = {};
  if (!place.IsOpen() || fstatvfs64(place.Get(), &status) != 0) {
    collection_.Note("statvfs " + facts.mount.mountPoint, std::generic_category().message(errno));
    return;
  }
  const std::uint64_t unit = status.f_frsize;
  draft.Set("BlockSize", unit)
      .Set("FileSystemSize", Multiply(status.f_blocks, unit))
      .Set("AvailableSpace", Multiply(status.f_bavail, unit))
      .Set("MaxFileNameLength", static_cast<std::uint32_t>(status.f_namemax));
  if (status.f_files > 0 && status.f_ffree <= status.f_files) {
    draft.Set("NumberOfFiles", static_cast<std::uint64_t>(status.f_files - status.f_ffree));
  }
}

std::optional<TCIMReference> TFileSystems::FindExtent(const std::string& source) const {
  auto found = extents_.find(GetDeviceName(source));
  // /dev/disk/by-uuid and the like are links to the device.
  if (found == extents_.end()) found = extents_.find(collection_.GetFiles().ReadLinkName(source));
  return found == extents_.end() ? std::nullopt : std::make_optional(found->second);
}

/// A mount names one device, also where there are more.
std::vector<TCIMReference> TFileSystems::FindExtents(const TMount& mount) const {
  const std::optional<TCIMReference> first = FindExtent(mount.source);
  if (!first) return {};
  for (const TPool& pool : pools_) {
    std::vector<TCIMReference> extents;
    bool isHere = false;
    for (const std::string& device : pool) {
      const auto found = extents_.find(device);
      if (found == extents_.end()) continue;
      extents.push_back(found->second);
      isHere = isHere || found->second.ToString() == first->ToString();
    }
    if (isHere && mount.type == "btrfs") return extents;
  }
  return {*first};
}

void TFileSystems::NoteUnmeasured() {
  if (slow_ > 0) {
    collection_.Note("statvfs of " + std::to_string(slow_) + " mount(s)",
                     "Not asked for: the answer might never come");
  }
  if (saved_ > 0) {
    collection_.Note("statvfs of " + std::to_string(saved_) + " mount(s)",
                     "Not asked for: they are not mounted below this root");
  }
}

}  // namespace

void CollectFileSystems(TCollection& collection, const TExtents& extents) {
  TFileSystems fileSystems(collection, extents);
  const std::set<std::string> types = ParseTypesWithoutDevice(collection.Read("/proc/filesystems"));
  for (const TFileSystemFacts& facts :
       SelectFileSystems(ParseMounts(collection.Read("/proc/mounts")), types)) {
    fileSystems.Add(facts);
  }
  fileSystems.NoteUnmeasured();
}

}  // namespace NZELVYR20

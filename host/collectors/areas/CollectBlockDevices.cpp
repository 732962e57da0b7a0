#include <set>
#include <utility>

#include "ArrayMembers.h"
#include "BlockDeviceText.h"
#include "CollectAreas.h"
#include "PciText.h"
#include "TIdentities.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kBlockFolder = "/sys/block";

/// A disk, or a part of one, as its folder shows it.
struct TDevice {
  TDevice(const std::string& deviceName, TMachineFolder deviceFolder)
      : name(deviceName),
        folder(std::move(deviceFolder)),
        readOnly(folder.ReadValue("ro")),
        mapped(folder.Enter("dm").ReadValue("name")) {}

  std::string name;
  TMachineFolder folder;
  std::string readOnly;
  std::string mapped;  ///< the name that the device mapper gives
  std::optional<TExtentSize> size{};
};

/// Collects the block devices of one machine.
class TBlockDevices {
 public:
  TBlockDevices(TCollection& collection, const TProviders& providers, const TMachineFolder& devices)
      : collection_(collection),
        providers_(providers),
        members_(ListArrayMembers(devices)),
        dvdDrives_(ParseDvdDrives(collection.GetFiles().ReadValue("/proc/sys/dev/cdrom/info"))),
        swaps_(ParseSwaps(collection.GetFiles().ReadTable("/proc/swaps"))) {}

  void AddDevice(const std::string& name, TMachineFolder folder);
  /// Links devices that the kernel makes from others, when all of them have been added.
  void LinkLayers();

  const TStorage& GetStorage() const { return storage_; }

 private:
  void AddDriveName(const std::string& name, const TCIMReference& path);
  void LinkDrive(const TDevice& drive, const TCIMReference& path, bool isFixed);
  void AddDrive(const TDevice& drive, const std::string& rotational);
  void SetIdentities(TInstanceDraft& draft, const TDevice& drive,
                     const TMachineFolder& folder) const;
  void AddPartition(const TDevice& disk, const std::string& name);
  TInstanceDraft DraftExtent(const std::string& className, const TDevice& device) const;
  void AddExtent(const TInstanceDraft& draft, const TDevice& device);
  void LinkPartition(const std::string& disk, const TDevice& partition);

  TCollection& collection_;
  const TProviders& providers_;
  std::map<std::string, TArrayMember> members_;
  std::multimap<std::string, std::string> paths_;  ///< to disks that have several
  std::set<std::string> dvdDrives_;
  std::set<std::string> swaps_;
  TStorage storage_;
  std::vector<std::pair<std::string, std::string>> layers_;  ///< each with one of what is below it
};

/// On buses that number their vendors the file has the number.
std::string GetVendorName(const std::string& vendor) {
  return vendor.compare(0, 2, "0x") == 0 ? std::string() : vendor;
}

void TBlockDevices::AddDevice(const std::string& name, TMachineFolder folder) {
  TDevice device(name, std::move(folder));
  // One of several paths to a disk that has a name of its own.
  if (device.folder.ReadValue("hidden") == "1") {
    paths_.emplace(FindDiskOfPath(name), name);
    return;
  }
  const TMachineFolder queue = device.folder.Enter("queue");
  device.size =
      ParseExtentSize(device.folder.ReadValue("size"), queue.ReadValue("logical_block_size"));
  const bool isDrive = device.folder.HasFolder("device");
  // Memory that poses as a disk, and loop devices and the like that nothing is attached to.
  const bool isArray = device.folder.HasFolder("md");
  const bool isUnused = !isDrive && !isArray && (!device.size || name.rfind("ram", 0) == 0);
  if (isUnused) return;
  if (device.size || isArray) AddExtent(DraftExtent("CIM_LogicalDisk", device), device);
  if (isDrive) AddDrive(device, queue.ReadValue("rotational"));
  for (const std::string& part : device.folder.GetNames()) {
    // The kernel names the parts after the whole.
    if (device.size && part.rfind(name, 0) == 0) AddPartition(device, part);
  }
  for (const std::string& below : device.folder.Enter("slaves").GetNames()) {
    layers_.emplace_back(name, below);
  }
}

void TBlockDevices::AddDrive(const TDevice& drive, const std::string& rotational) {
  const TMachineFolder folder = drive.folder.Enter("device");
  const std::string model = folder.ReadValue("model");
  const std::string vendor = GetVendorName(folder.ReadValue("vendor"));
  const std::string className = FindDriveClass(drive.name, folder.ReadValue("type"), dvdDrives_);
  const bool isRemovable = drive.folder.ReadValue("removable") == "1";
  std::vector<unsigned> capabilities = {3};
  if (drive.readOnly == "0") capabilities.push_back(4);
  if (isRemovable) capabilities.push_back(7);

  TInstanceDraft draft = collection_.DraftDevice(className, drive.name);
  draft.Set("Name", GetDeviceFile(drive.name))
      .Set("ElementName", model.empty() ? drive.name : model)
      .SetText("Description", vendor)
      .SetCodes("Capabilities", capabilities);
  if (className == "CIM_DiskDrive") draft.SetCode("DiskType", ParseDiskType(rotational));
  const std::string state = folder.ReadValue("state");
  if (const auto code = ParseDriveState(state)) {
    draft.SetCodes("OperationalStatus", {*code});
    if (*code == kOther) draft.SetTexts("StatusDescriptions", {state});
  }
  if (drive.size) {
    draft.Set("DefaultBlockSize", drive.size->blockSize)
        .Set("MaxMediaSize", drive.size->blocks * drive.size->blockSize / 1000)
        .Set("Caption", DescribeSize(drive.size->blocks * drive.size->blockSize));
  }
  SetIdentities(draft, drive, folder);
  draft.Set("HealthState", ParseWear(folder.ReadValue("pre_eol_info")));
  const std::optional<TCIMReference> path = collection_.AddPart(draft, "CIM_SystemDevice");
  if (path) LinkDrive(drive, *path, !isRemovable);
}

/// What sensors of the drive call it.
void TBlockDevices::AddDriveName(const std::string& name, const TCIMReference& path) {
  const std::string device =
      collection_.GetFiles().ReadLinkName(kBlockFolder + ('/' + name) + "/device");
  if (!device.empty()) storage_.drives.emplace(device, path);
}

void TBlockDevices::LinkDrive(const TDevice& drive, const TCIMReference& path, bool isFixed) {
  const std::string link = kBlockFolder + ('/' + drive.name);
  LinkToProviders(collection_, providers_, link, path);
  const auto [begin, end] = paths_.equal_range(drive.name);
  for (auto other = begin; other != end; ++other) {
    LinkToProviders(collection_, providers_, kBlockFolder + ('/' + other->second), path);
    AddDriveName(other->second, path);
  }
  AddDriveName(drive.name, path);
  const auto medium = storage_.extents.find(drive.name);
  if (medium == storage_.extents.end()) return;
  collection_.Link(collection_.DraftDependency("CIM_MediaPresent", path, medium->second)
                       .Set("FixedMedia", isFixed));
}

/// Of a disk on SCSI, which those on SATA and USB are, too: requests that failed since the start.
std::string ReadErrorCount(const TMachineFolder& folder) {
  constexpr unsigned kBits = 32;
  const auto count = ParsePciNumber(folder.ReadValue("ioerr_cnt"), kBits);
  return count ? std::to_string(*count) : std::string();
}

/// Each bus has its own places for these.
void TBlockDevices::SetIdentities(TInstanceDraft& draft, const TDevice& drive,
                                  const TMachineFolder& folder) const {
  const auto first = [&folder, &drive](const char* name, const char* otherName) {
    const std::string text = folder.ReadValue(name);
    return text.empty() ? drive.folder.ReadValue(otherName) : text;
  };
  TIdentities()
      .Add("Serial number", first("serial", "serial"))
      .Add("World wide name", first("wwid", "wwid"))
      .Add("Firmware", folder.ReadValue(folder.Has("firmware_rev") ? "firmware_rev" : "rev"))
      .Add("Failed requests", ReadErrorCount(folder))
      .Add("Life time used", DescribeLifeTime(folder.ReadValue("life_time")))
      .Add("Bus", FindBus(collection_.GetFiles().ReadLink(kBlockFolder + ('/' + drive.name))))
      .SetIn(draft);
}

void TBlockDevices::AddPartition(const TDevice& disk, const std::string& name) {
  TDevice partition(name, disk.folder.Enter(name));
  if (!partition.folder.Has("partition")) return;
  partition.size =
      ParseExtentSize(partition.folder.ReadValue("size"), std::to_string(disk.size->blockSize));
  if (!partition.size) return;
  AddExtent(DraftExtent("CIM_DiskPartition", partition), partition);
  LinkPartition(disk.name, partition);
}

/// What the storage is made of, where the kernel made it from something else.
std::string DescribeVolume(const TMachineFolder& folder) {
  const std::string file = folder.Enter("loop").ReadValue("backing_file");
  if (!file.empty()) return "File " + file;
  return ParseMapperKind(folder.Enter("dm").ReadValue("uuid"));
}

TInstanceDraft TBlockDevices::DraftExtent(const std::string& className,
                                          const TDevice& device) const {
  TInstanceDraft draft = collection_.DraftDevice(className, device.name);
  draft.Set("Name", GetDeviceFile(device.name))
      .Set("ElementName", device.mapped.empty() ? device.name : device.mapped)
      .SetText("Description", DescribeVolume(device.folder));
  if (device.size) SetSize(draft, *device.size);
  if (swaps_.count(device.name) > 0) draft.Set("Purpose", "Swap space");
  if (!device.readOnly.empty()) draft.SetCode("Access", device.readOnly == "0" ? 3 : 1);
  const auto member = members_.find(device.name);
  if (member != members_.end()) SetMember(draft, member->second);
  if (device.folder.HasFolder("md")) SetArray(draft, device.folder.Enter("md"));
  return draft;
}

void TBlockDevices::AddExtent(const TInstanceDraft& draft, const TDevice& device) {
  const auto path = collection_.AddPart(draft, "CIM_SystemDevice");
  if (!path) return;
  storage_.extents.emplace(device.name, *path);
  // File systems are mounted by the name that the device mapper gives.
  if (!device.mapped.empty()) storage_.extents.emplace("mapper!" + device.mapped, *path);
}

void TBlockDevices::LinkPartition(const std::string& disk, const TDevice& partition) {
  const auto whole = storage_.extents.find(disk);
  const auto part = storage_.extents.find(partition.name);
  if (whole == storage_.extents.end() || part == storage_.extents.end()) return;
  TInstanceDraft draft = collection_.DraftDependency("CIM_BasedOn", whole->second, part->second);
  draft.Set("OrderIndex", ParseNumber<std::uint16_t>(partition.folder.ReadValue("partition")));
  if (const auto start = Multiply(ParseUnsigned(partition.folder.ReadValue("start")), 512)) {
    const std::uint64_t first = *start / partition.size->blockSize;
    draft.Set("StartingAddress", first)
        .Set("EndingAddress", Add(first, partition.size->blocks - 1));
  }
  collection_.Link(draft);
}

void TBlockDevices::LinkLayers() {
  for (const auto& [above, below] : layers_) {
    const auto upper = storage_.extents.find(above);
    const auto lower = storage_.extents.find(below);
    if (upper == storage_.extents.end() || lower == storage_.extents.end()) continue;
    TInstanceDraft draft = collection_.DraftDependency("CIM_BasedOn", lower->second, upper->second);
    const auto member = members_.find(below);
    if (member != members_.end() && member->second.array == above) {
      draft.Set("OrderIndex", ParseNumber<std::uint16_t>(member->second.slot));
    }
    collection_.Link(draft);
  }
}

}  // namespace

void SetSize(TInstanceDraft& draft, const TExtentSize& size) {
  draft.Set("BlockSize", size.blockSize).Set("NumberOfBlocks", size.blocks);
  if (const auto bytes = Multiply(size.blocks, size.blockSize)) {
    draft.Set("Caption", DescribeSize(*bytes));
  }
}

TStorage CollectBlockDevices(TCollection& collection, const TProviders& providers) {
  const TMachineFolder folder = collection.Enter(kBlockFolder);
  TBlockDevices devices(collection, providers, folder);
  for (const std::string& name : folder.GetNames()) devices.AddDevice(name, folder.Enter(name));
  devices.LinkLayers();
  return devices.GetStorage();
}

}  // namespace NZELVYR20

#include "BlockDeviceText.h"
#include "CollectAreas.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kDevicesFolder = "/sys/block";

constexpr std::uint16_t kOther = 1;  ///< in all of the standard's lists here

/// Collects the block devices of one machine.
class TBlockDevices {
 public:
  explicit TBlockDevices(TCollection& collection)
      : collection_(collection), files_(collection.GetFiles()) {}

  void AddDevice(const std::string& name);
  /// Links devices that the kernel makes from others; all of them have to be added before.
  void AddLayers(const std::string& name);

  const TExtents& GetExtents() const { return extents_; }

 private:
  void AddDrive(const std::string& name, const std::optional<TExtentSize>& size);
  void AddPartition(const std::string& disk, const std::string& name, std::uint64_t blockSize);
  TInstanceDraft DraftExtent(const std::string& className, const std::string& name,
                             const std::string& folder,
                             const std::optional<TExtentSize>& size) const;
  void SetArray(TInstanceDraft& draft, const std::string& folder) const;
  void AddExtent(TInstanceDraft draft, const std::string& name);
  void LinkPartition(const std::string& disk, const std::string& name, const std::string& folder,
                     const TExtentSize& size);

  TCollection& collection_;
  const TMachineFiles& files_;
  TExtents extents_;
};

std::string GetFolder(const std::string& name) { return kDevicesFolder + ("/" + name) + '/'; }

/// On buses that number their vendors the file has the number.
std::string GetVendorName(const std::string& vendor) {
  return vendor.compare(0, 2, "0x") == 0 ? std::string() : vendor;
}

void TBlockDevices::AddDevice(const std::string& name) {
  const std::string folder = GetFolder(name);
  // One of several paths to a disk that has a name of its own.
  if (files_.ReadValue(folder + "hidden") == "1") return;
  const std::string blockSize = files_.ReadValue(folder + "queue/logical_block_size");
  const std::optional<TExtentSize> size =
      ParseExtentSize(files_.ReadValue(folder + "size"), blockSize);
  const bool isDrive = files_.IsFolder(folder + "device");
  // Memory that poses as a disk, and loop devices and the like that nothing is attached to.
  const bool isArray = files_.IsFolder(folder + "md");
  const bool isUnused = !isDrive && !isArray && (!size || name.rfind("ram", 0) == 0);
  if (isUnused) return;
  if (size || isArray) AddExtent(DraftExtent("CIM_LogicalDisk", name, folder, size), name);
  if (isDrive) AddDrive(name, size);
  if (!size) return;
  for (const std::string& part : files_.List(folder)) {
    if (!files_.ReadValue(folder + part + "/partition").empty()) {
      AddPartition(name, part, size->blockSize);
    }
  }
}

void TBlockDevices::AddDrive(const std::string& name, const std::optional<TExtentSize>& size) {
  const std::string folder = GetFolder(name);
  const std::string model = files_.ReadValue(folder + "device/model");
  const std::string vendor = GetVendorName(files_.ReadValue(folder + "device/vendor"));
  const std::string media = FindMediaDrive(name, files_.ReadValue(folder + "device/type"));
  const bool isRemovable = files_.ReadValue(folder + "removable") == "1";
  std::vector<unsigned> capabilities = {3};
  if (files_.ReadValue(folder + "ro") == "0") capabilities.push_back(4);
  if (isRemovable) capabilities.push_back(7);

  TInstanceDraft draft = collection_.DraftDevice("CIM_DiskDrive", name);
  draft.Set("Name", GetDeviceFile(name))
      .Set("ElementName", model.empty() ? name : model)
      .SetText("Description",
               media.empty() || vendor.empty() ? media + vendor : media + ", " + vendor)
      .SetCode("DiskType", media.empty()
                               ? ParseDiskType(files_.ReadValue(folder + "queue/rotational"))
                               : kOther)
      .SetCodes("Capabilities", capabilities);
  const std::string state = files_.ReadValue(folder + "device/state");
  if (const auto code = ParseDriveState(state)) {
    draft.SetCodes("OperationalStatus", {*code});
    if (*code == kOther) draft.SetTexts("StatusDescriptions", {state});
  }
  if (size) {
    draft.Set("DefaultBlockSize", size->blockSize)
        .Set("MaxMediaSize", size->blocks * size->blockSize / 1024);
  }
  const std::optional<TCIMReference> drive =
      collection_.AddPart(std::move(draft), "CIM_SystemDevice");
  const auto medium = extents_.find(name);
  if (drive && medium != extents_.end()) {
    collection_.Add(collection_.DraftDependency("CIM_MediaPresent", *drive, medium->second)
                        .Set("FixedMedia", !isRemovable));
  }
}

void TBlockDevices::AddPartition(const std::string& disk, const std::string& name,
                                 std::uint64_t blockSize) {
  const std::string folder = GetFolder(disk) + name + '/';
  const std::optional<TExtentSize> size =
      ParseExtentSize(files_.ReadValue(folder + "size"), std::to_string(blockSize));
  if (!size) return;
  AddExtent(DraftExtent("CIM_DiskPartition", name, folder, size), name);
  LinkPartition(disk, name, folder, *size);
}

TInstanceDraft TBlockDevices::DraftExtent(const std::string& className, const std::string& name,
                                          const std::string& folder,
                                          const std::optional<TExtentSize>& size) const {
  const std::string readOnly = files_.ReadValue(folder + "ro");
  const std::string mapped = files_.ReadValue(folder + "dm/name");
  TInstanceDraft draft = collection_.DraftDevice(className, name);
  draft.Set("Name", GetDeviceFile(name))
      .Set("ElementName", mapped.empty() ? name : mapped)
      .SetText("Description", ParseMapperKind(files_.ReadValue(folder + "dm/uuid")));
  if (size) SetSize(draft, *size);
  if (!readOnly.empty()) draft.SetCode("Access", readOnly == "0" ? 3 : 1);
  if (files_.IsFolder(folder + "md")) SetArray(draft, folder + "md/");
  return draft;
}

void TBlockDevices::SetArray(TInstanceDraft& draft, const std::string& folder) const {
  const TArrayState state = ParseArrayState(
      files_.ReadValue(folder + "array_state"), files_.ReadValue(folder + "degraded"),
      files_.ReadValue(folder + "raid_disks"), files_.ReadValue(folder + "sync_action"));
  draft.Set("Description", "Array of disks")
      .SetText("ErrorMethodology", files_.ReadValue(folder + "level"))
      .SetCodes("OperationalStatus", {state.operationalStatus})
      .SetTexts("StatusDescriptions", {state.description})
      .SetCode("HealthState", state.healthState);
}

void TBlockDevices::AddExtent(TInstanceDraft draft, const std::string& name) {
  if (const auto path = collection_.AddPart(std::move(draft), "CIM_SystemDevice")) {
    extents_.emplace(name, *path);
  }
}

void TBlockDevices::LinkPartition(const std::string& disk, const std::string& name,
                                  const std::string& folder, const TExtentSize& size) {
  const auto whole = extents_.find(disk);
  const auto part = extents_.find(name);
  if (whole == extents_.end() || part == extents_.end()) return;
  TInstanceDraft draft = collection_.DraftDependency("CIM_BasedOn", whole->second, part->second);
  draft.Set("OrderIndex", ParseNumber<std::uint16_t>(files_.ReadValue(folder + "partition")));
  if (const auto start = Multiply(ParseUnsigned(files_.ReadValue(folder + "start")), 512)) {
    draft.Set("StartingAddress", *start / size.blockSize)
        .Set("EndingAddress", Add(*start / size.blockSize, size.blocks - 1));
  }
  collection_.Add(std::move(draft));
}

void TBlockDevices::AddLayers(const std::string& name) {
  const auto upper = extents_.find(name);
  if (upper == extents_.end()) return;
  for (const std::string& below : files_.List(GetFolder(name) + "slaves")) {
    const auto lower = extents_.find(below);
    if (lower != extents_.end()) {
      collection_.Add(collection_.DraftDependency("CIM_BasedOn", lower->second, upper->second));
    }
  }
  // File systems are mounted by the name that the device mapper gives.
  const std::string mapped = files_.ReadValue(GetFolder(name) + "dm/name");
  if (!mapped.empty()) extents_.emplace("mapper!" + mapped, upper->second);
}

}  // namespace

void SetSize(TInstanceDraft& draft, const TExtentSize& size) {
  draft.Set("BlockSize", size.blockSize).Set("NumberOfBlocks", size.blocks);
  if (const auto bytes = Multiply(size.blocks, size.blockSize)) {
    draft.Set("Caption", DescribeSize(*bytes));
  }
}

TExtents CollectBlockDevices(TCollection& collection) {
  const std::vector<std::string> names = collection.List(kDevicesFolder);
  TBlockDevices devices(collection);
  for (const std::string& name : names) devices.AddDevice(name);
  for (const std::string& name : names) devices.AddLayers(name);
  return devices.GetExtents();
}

}  // namespace NZELVYR20

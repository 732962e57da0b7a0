#include <unistd.h>

#include <array>

#include "CollectAreas.h"
#include "HostKindText.h"
#include "ProcessorText.h"
#include "SystemText.h"
#include "TFirmwareFields.h"
#include "TIdentities.h"

namespace NZELVYR20 {
namespace {

std::string GetLiveName() {
  std::array<char, 256> name = {};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : std::string();
}

std::string FindName(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  std::string name = files.ReadValue("/proc/sys/kernel/hostname");
  if (name.empty() && files.IsLive()) name = GetLiveName();
  if (name.empty()) name = files.ReadValue("/etc/hostname");
  if (name.empty()) {
    name = "localhost";
    collection.Note("/proc/sys/kernel/hostname", "No host name; \"localhost\" stands in for it");
  }
  return name;
}

/// How the managers of containers leave their names.
std::string FindContainer(const TMachineFiles& files) {
  std::string name = files.ReadValue("/run/systemd/container");
  if (!name.empty()) return name;
  if (files.Find("/.dockerenv").IsOpen()) return "docker";
  return files.Find("/run/.containerenv").IsOpen() ? "podman" : "";
}

std::string FindHostKind(const TMachineFiles& files, const TFirmwareFields& firmware) {
  THostSigns signs;
  signs.container = FindContainer(files);
  signs.maker = firmware.Read("sys_vendor");
  signs.product = firmware.Read("product_name");
  signs.hypervisor = files.ReadValue("/sys/hypervisor/type");
  signs.isUnderHypervisor = HasProcessorFlag(files.ReadTable("/proc/cpuinfo"), "hypervisor");
  return DescribeHostKind(signs);
}

std::optional<TCIMReference> AddChassis(TCollection& collection, TInstanceDraft& draft,
                                        const std::string& model) {
  draft.Set("Tag", "chassis0").Set("CreationClassName", "CIM_Chassis");
  draft.SetText("Model", model).SetText("ElementName", model);
  std::optional<TCIMReference> chassis = collection.Add(draft);
  if (chassis && collection.GetSystem()) {
    collection.Link(
        collection.DraftDependency("CIM_ComputerSystemPackage", *chassis, *collection.GetSystem()));
  }
  return chassis;
}

}  // namespace

void CollectComputerSystem(TCollection& collection) {
  const std::string name = FindName(collection);
  TInstanceDraft draft = collection.Draft("CIM_ComputerSystem");
  draft.Set("CreationClassName", "CIM_ComputerSystem").Set("Name", name).Set("ElementName", name);
  draft.Set("NameFormat", "Other").SetCode("EnabledState", 2);
  const TFirmwareFields firmware(collection);
  draft.SetText("Description", FindHostKind(collection.GetFiles(), firmware));
  TIdentities()
      .Add("UUID", firmware.ReadQuietly("product_uuid"))
      .Add("Asset tag", firmware.Read("chassis_asset_tag"))
      .SetIn(draft);
  collection.AddSystem(draft, name);
}

std::optional<TCIMReference> CollectChassis(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  const TFirmwareFields firmware(collection);
  TInstanceDraft draft = collection.Draft("CIM_Chassis");
  if (firmware.GetFolder().IsThere()) {
    draft.SetText("Manufacturer", firmware.Read("sys_vendor"))
        .SetText("Version", firmware.Read("product_version"))
        .SetText("SKU", firmware.Read("product_sku"))
        .SetText("SerialNumber", firmware.Read("product_serial"));
    if (const auto form = ParseChassisForm(firmware.Read("chassis_type"))) {
      draft.SetCode("ChassisPackageType", form->type)
          .SetText("ChassisTypeDescription", form->other);
    }
    return AddChassis(collection, draft, firmware.Read("product_name"));
  }
  // Machines without firmware tables mostly describe themselves by a device tree.
  const std::string model = files.ReadValue("/proc/device-tree/model");
  if (!model.empty()) return AddChassis(collection, draft, model);
  collection.Note(TFirmwareFields::kFolder, firmware.GetFolder().GetReason());
  return std::nullopt;
}

}  // namespace NZELVYR20

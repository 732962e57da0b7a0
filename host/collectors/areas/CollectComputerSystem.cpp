#include <unistd.h>

#include <algorithm>
#include <array>

#include "CollectAreas.h"
#include "SystemText.h"
#include "TextFields.h"

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

/// A field of the firmware's tables. Serial numbers are for the superuser only, and a refusal is
/// worth a note; that a field is not there is not.
std::string ReadFirmware(TCollection& collection, const std::string& field) {
  const std::string folder = "/sys/class/dmi/id/";
  const std::vector<std::string> names = collection.GetFiles().List(folder);
  if (std::find(names.begin(), names.end(), field) == names.end()) return {};
  return CleanFirmwareText(std::string(Trim(collection.Read(folder + field))));
}

void AddChassis(TCollection& collection, TInstanceDraft draft, const std::string& model) {
  draft.Set("Tag", "chassis0").Set("CreationClassName", "CIM_Chassis");
  draft.SetText("Model", model).SetText("ElementName", model);
  const std::optional<TCIMReference> chassis = collection.Add(std::move(draft));
  if (chassis && collection.GetSystem()) {
    collection.Add(
        collection.DraftDependency("CIM_ComputerSystemPackage", *chassis, *collection.GetSystem()));
  }
}

}  // namespace

void CollectComputerSystem(TCollection& collection) {
  const std::string name = FindName(collection);
  TInstanceDraft draft = collection.Draft("CIM_ComputerSystem");
  draft.Set("CreationClassName", "CIM_ComputerSystem").Set("Name", name).Set("ElementName", name);
  draft.Set("NameFormat", "Other").SetCode("EnabledState", 2);
  collection.AddSystem(std::move(draft), name);
}

void CollectChassis(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  TInstanceDraft draft = collection.Draft("CIM_Chassis");
  if (files.IsFolder("/sys/class/dmi/id")) {
    draft.SetText("Manufacturer", ReadFirmware(collection, "sys_vendor"))
        .SetText("Version", ReadFirmware(collection, "product_version"))
        .SetText("SKU", ReadFirmware(collection, "product_sku"))
        .SetText("SerialNumber", ReadFirmware(collection, "product_serial"));
    if (const auto form = ParseChassisForm(ReadFirmware(collection, "chassis_type"))) {
      draft.SetCode("ChassisPackageType", form->type)
          .SetText("ChassisTypeDescription", form->other);
    }
    return AddChassis(collection, std::move(draft), ReadFirmware(collection, "product_name"));
  }
  // Machines without firmware tables mostly describe themselves by a device tree.
  const std::string model = files.ReadValue("/proc/device-tree/model");
  if (!model.empty()) return AddChassis(collection, std::move(draft), model);
  // Noted, with the reason, by trying.
  collection.List("/sys/class/dmi/id");
}

}  // namespace NZELVYR20

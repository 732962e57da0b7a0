#include <unistd.h>

#include <array>

#include "CollectAreas.h"
#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kFirmwareFolder = "/sys/class/dmi/id";

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
std::string ReadFirmware(TCollection& collection, const TMachineFolder& fields,
                         const std::string& name) {
  if (!fields.Has(name)) return {};
  return CleanFirmwareText(std::string(Trim(collection.Read(kFirmwareFolder + ("/" + name)))));
}

std::optional<TCIMReference> AddChassis(TCollection& collection, TInstanceDraft& draft,
                                        const std::string& model) {
  draft.Set("Tag", "chassis0").Set("CreationClassName", "CIM_Chassis");
  draft.SetText("Model", model).SetText("ElementName", model);
  const std::optional<TCIMReference> chassis = collection.Add(draft);
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
  collection.AddSystem(draft, name);
}

std::optional<TCIMReference> CollectChassis(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  const TMachineFolder firmware(files, kFirmwareFolder);
  const auto read = [&](const char* name) { return ReadFirmware(collection, firmware, name); };
  TInstanceDraft draft = collection.Draft("CIM_Chassis");
  if (firmware.IsThere()) {
    draft.SetText("Manufacturer", read("sys_vendor"))
        .SetText("Version", read("product_version"))
        .SetText("SKU", read("product_sku"))
        .SetText("SerialNumber", read("product_serial"));
    if (const auto form = ParseChassisForm(read("chassis_type"))) {
      draft.SetCode("ChassisPackageType", form->type)
          .SetText("ChassisTypeDescription", form->other);
    }
    return AddChassis(collection, draft, read("product_name"));
  }
  // Machines without firmware tables mostly describe themselves by a device tree.
  const std::string model = files.ReadValue("/proc/device-tree/model");
  if (!model.empty()) return AddChassis(collection, draft, model);
  collection.Note(kFirmwareFolder, firmware.GetReason());
  return std::nullopt;
}

}  // namespace NZELVYR20

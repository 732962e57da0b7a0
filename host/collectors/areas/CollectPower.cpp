#include "CollectAreas.h"
#include "SensorText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr auto kSuppliesFolder = "/sys/class/power_supply";

/// In milliwatt-hours; some batteries count their charge instead of their energy. Nothing for what
/// does not fit.
std::optional<std::uint32_t> FindCapacity(const TMachineFolder& folder, const std::string& ending) {
  constexpr std::uint64_t kMilli = 1000;
  std::optional<std::uint64_t> microwattHours = ParseUnsigned(folder.ReadValue("energy_" + ending));
  if (!microwattHours) {
    const auto charge = ParseUnsigned(folder.ReadValue("charge_" + ending));
    const auto voltage = ParseUnsigned(folder.ReadValue("voltage_min_design"));
    if (charge && voltage) microwattHours = Multiply(*charge / kMilli, *voltage / kMilli);
  }
  if (!microwattHours || *microwattHours / kMilli > UINT32_MAX) return std::nullopt;
  return static_cast<std::uint32_t>(*microwattHours / kMilli);
}

void AddBattery(TCollection& collection, const std::string& name, const TMachineFolder& folder) {
  const auto percent = ParseNumber<std::uint16_t>(folder.ReadValue("capacity"));
  const std::string technology = folder.ReadValue("technology");
  const std::uint16_t chemistry = ParseChemistry(technology);
  const std::string model = folder.ReadValue("model_name");
  TInstanceDraft draft = collection.DraftDevice("CIM_Battery", name);
  draft.Set("Name", name)
      .Set("ElementName", model.empty() ? name : model)
      .SetText("Description", folder.ReadValue("manufacturer"))
      .SetCode("BatteryStatus", ParseBatteryStatus(folder.ReadValue("status"), percent))
      .SetCode("Chemistry", chemistry)
      .Set("EstimatedChargeRemaining", percent)
      .Set("DesignCapacity", FindCapacity(folder, "full_design"))
      .Set("FullChargeCapacity", FindCapacity(folder, "full"))
      .Set("RemainingCapacity", FindCapacity(folder, "now"))
      .Set("RechargeCount", ParseNumber<std::uint32_t>(folder.ReadValue("cycle_count")));
  if (chemistry == kOther) draft.Set("OtherChemistryDescription", technology);
  if (const auto microVolts = ParseUnsigned(folder.ReadValue("voltage_min_design"))) {
    draft.Set("DesignVoltage", *microVolts / 1000);
  }
  collection.AddPart(draft, "CIM_SystemDevice");
}

void AddSupply(TCollection& collection, const std::string& name, const std::string& type,
               const TMachineFolder& folder) {
  constexpr unsigned kEnabled = 2;
  constexpr unsigned kOffline = 6;
  TInstanceDraft draft = collection.DraftDevice("CIM_PowerSupply", name);
  draft.Set("Name", name).Set("ElementName", name).Set("Description", type);
  draft.Set("IsACInput", type == "Mains")
      .SetCode("EnabledState", folder.ReadValue("online") == "0" ? kOffline : kEnabled);
  collection.AddPart(draft, "CIM_SystemDevice");
}

}  // namespace

void CollectPower(TCollection& collection) {
  const TMachineFolder supplies(collection.GetFiles(), kSuppliesFolder);
  for (const std::string& name : supplies.GetNames()) {
    const TMachineFolder folder = supplies.Enter(name);
    const std::string type = folder.ReadValue("type");
    // Batteries of mice and the like are not the machine's.
    if (type.empty() || folder.ReadValue("scope") == "Device") continue;
    if (type == "Battery" || type == "UPS") {
      AddBattery(collection, name, folder);
    } else {
      AddSupply(collection, name, type, folder);
    }
  }
}

}  // namespace NZELVYR20

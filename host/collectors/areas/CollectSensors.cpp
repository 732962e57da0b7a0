#include <set>

#include "CollectAreas.h"
#include "SensorText.h"

namespace NZELVYR20 {
namespace {

constexpr auto kMonitorsFolder = "/sys/class/hwmon";

/// A file beside the reading, and the property for it.
struct TThreshold {
  const char* suffix;
  const char* property;
};

constexpr TThreshold kThresholds[] = {{"_lcrit", "LowerThresholdCritical"},
                                      {"_min", "LowerThresholdNonCritical"},
                                      {"_max", "UpperThresholdNonCritical"},
                                      {"_crit", "UpperThresholdCritical"},
                                      {"_emergency", "UpperThresholdFatal"}};

/// A chip, or part of one, that measures.
struct TMonitor {
  const TMachineFolder& folder;
  std::string chip;
  std::string name;  ///< tells the chip from others of its kind
};

unsigned FindStatus(const TMachineFolder& folder, const std::string& channel) {
  constexpr unsigned kOk = 2;
  constexpr unsigned kDegraded = 3;
  constexpr unsigned kError = 6;
  if (folder.ReadValue(channel + "_fault") == "1") return kError;
  return folder.ReadValue(channel + "_alarm") == "1" ? kDegraded : kOk;
}

TInstanceDraft DraftSensor(const TCollection& collection, const TMonitor& monitor,
                           const std::string& channel, const TSensorKind& kind) {
  const TMachineFolder& folder = monitor.folder;
  const std::string label = folder.ReadValue(channel + "_label");
  TInstanceDraft draft = collection.DraftDevice("CIM_NumericSensor", monitor.name + '/' + channel);
  draft.Set("ElementName", monitor.chip + ' ' + (label.empty() ? channel : label))
      .SetCode("SensorType", kind.sensorType)
      .SetCode("BaseUnits", kind.baseUnits)
      .Set("UnitModifier", kind.unitModifier)
      .SetCode("RateUnits", 0)
      .SetCodes("OperationalStatus", {FindStatus(folder, channel)});
  if (const auto reading = ParseReading(folder.ReadValue(channel + "_input"), kind.divisor)) {
    draft.Set("CurrentReading", *reading).Set("Caption", DescribeReading(*reading, kind));
  }
  for (const TThreshold& threshold : kThresholds) {
    draft.Set(threshold.property,
              ParseReading(folder.ReadValue(channel + threshold.suffix), kind.divisor));
  }
  return draft;
}

void AddSensors(TCollection& collection, const TMonitor& monitor,
                const std::optional<TCIMReference>& measured) {
  for (const std::string& file : monitor.folder.GetNames()) {
    const std::optional<TSensorKind> kind = FindSensorKind(file);
    if (!kind) continue;
    const auto sensor =
        collection.AddPart(DraftSensor(collection, monitor, file.substr(0, file.find('_')), *kind),
                           "CIM_SystemDevice");
    if (sensor && measured) {
      collection.Link(collection.DraftDependency("CIM_AssociatedSensor", *sensor, *measured));
    }
  }
}

/// Drives measure themselves, and so do cards.
std::optional<TCIMReference> FindMeasured(const std::string& device, const TPciFunctions& functions,
                                          const TStorage& storage) {
  const auto drive = storage.drives.find(device);
  if (drive != storage.drives.end()) return drive->second;
  const auto function = functions.find(device);
  return function == functions.end() ? std::nullopt : std::optional(function->second.path);
}

}  // namespace

void CollectSensors(TCollection& collection, const TPciFunctions& functions,
                    const TStorage& storage) {
  const TMachineFiles& files = collection.GetFiles();
  const TMachineFolder monitors(files, kMonitorsFolder);
  std::set<std::string> known;
  for (const std::string& entry : monitors.GetNames()) {
    const TMachineFolder folder = monitors.Enter(entry);
    const std::string chip = folder.ReadValue("name");
    if (chip.empty()) continue;
    // Entries are numbered in the order in which drivers came, which the next start may change.
    const std::string device = files.ReadLinkName(kMonitorsFolder + ("/" + entry) + "/device");
    std::string name = chip;
    if (!device.empty()) name.append("/").append(device);
    if (!known.insert(name).second) known.insert(name.append("/").append(entry));
    AddSensors(collection, {folder, chip, name}, FindMeasured(device, functions, storage));
  }
}

}  // namespace NZELVYR20

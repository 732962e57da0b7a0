#include <set>

#include "CollectAreas.h"
#include "FirmwareTables.h"
#include "ProcessorText.h"
#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr auto kFirmwareTables = "/sys/firmware/dmi/tables/DMI";
constexpr auto kNodesFolder = "/sys/devices/system/node";
constexpr std::uint64_t kKibibyte = 1024;

/// Memory in which programs run, or a part of it.
std::optional<TCIMReference> AddMemory(TCollection& collection, const std::string& id,
                                       const std::string& name, const std::string& description,
                                       std::optional<std::uint64_t> kibibytes) {
  const std::optional<std::uint64_t> bytes = Multiply(kibibytes, kKibibyte);
  if (!bytes) return std::nullopt;
  TInstanceDraft draft = collection.DraftDevice("CIM_Memory", id);
  draft.Set("ElementName", name).SetText("Description", description);
  draft.Set("Purpose", "System memory").Set("Volatile", true);
  SetSize(draft, {1, *bytes});
  return collection.AddPart(draft, "CIM_SystemDevice");
}

std::optional<TCIMReference> AddModule(TCollection& collection, std::size_t socket,
                                       const TMemoryModule& module) {
  const std::string tag = "memory" + std::to_string(socket);
  TInstanceDraft draft = collection.Draft("CIM_PhysicalMemory");
  draft.Set("CreationClassName", "CIM_PhysicalMemory").Set("Tag", tag);
  draft.Set("ElementName", module.locator.empty() ? tag : module.locator)
      .SetText("BankLabel", module.bank)
      .SetText("Manufacturer", module.manufacturer)
      .SetText("SerialNumber", module.serialNumber)
      .SetText("PartNumber", module.partNumber)
      .SetText("Model", module.otherType)
      .Set("Capacity", module.capacity)
      .SetCode("FormFactor", module.formFactor)
      .SetCode("MemoryType", module.memoryType)
      .Set("MaxMemorySpeed", module.highestSpeed)
      .Set("ConfiguredMemoryClockSpeed", module.presentSpeed)
      .Set("TotalWidth", module.totalWidth)
      .Set("DataWidth", module.dataWidth);
  return collection.Add(draft);
}

/// The tables are for the superuser only, and a refusal is worth a note; machines without them are
/// many.
void AddModules(TCollection& collection, const std::optional<TCIMReference>& chassis,
                const std::optional<TCIMReference>& memory) {
  if (!collection.GetFiles().Find(kFirmwareTables).IsOpen()) return;
  std::size_t socket = 0;
  for (const auto& module : ParseMemoryModules(collection.Read(kFirmwareTables))) {
    const auto path = module ? AddModule(collection, socket, *module) : std::nullopt;
    ++socket;
    if (path && memory) collection.Link(collection.DraftDependency("CIM_Realizes", *path, *memory));
    if (path && chassis) {
      collection.Link(collection.DraftComponent("CIM_Container", *chassis, *path)
                          .SetText("LocationWithinContainer", module->locator));
    }
  }
}

void AddNode(TCollection& collection, const std::string& name, const TMachineFolder& folder,
             const std::optional<TCIMReference>& memory, const TProcessorsByIndex& processors) {
  const std::string cpus = folder.ReadValue("cpulist");
  const std::optional<TCIMReference> node =
      AddMemory(collection, name, "NUMA " + name,
                cpus.empty() ? std::string("No processors") : "Processors " + cpus,
                ParseMemory(folder.ReadValue("meminfo")).total);
  if (!node) return;
  if (memory) collection.Link(collection.DraftComponent("CIM_ConcreteComponent", *memory, *node));
  std::set<std::string> linked;
  for (const std::uint32_t index : ParseList(cpus)) {
    const auto processor = processors.find(index);
    if (processor == processors.end() || !linked.insert(processor->second.GetPath()).second) {
      continue;
    }
    collection.Link(
        collection.DraftDependency("CIM_AssociatedProcessorMemory", *node, processor->second));
  }
}

}  // namespace

void CollectMemory(TCollection& collection, const std::optional<TCIMReference>& chassis,
                   const TProcessorsByIndex& processors) {
  const TMachineFiles& files = collection.GetFiles();
  const std::optional<TCIMReference> memory = AddMemory(
      collection, "memory", "Memory", {}, ParseMemory(files.ReadValue("/proc/meminfo")).total);
  AddModules(collection, chassis, memory);
  const TMachineFolder nodes(files, kNodesFolder);
  for (const std::string& name : nodes.GetNames()) {
    const TMachineFolder folder = nodes.Enter(name);
    // A node may have processors without memory; it shows with none then.
    if (folder.Has("cpulist")) AddNode(collection, name, folder, memory, processors);
  }
}

}  // namespace NZELVYR20

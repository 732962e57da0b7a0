#include <map>
#include <set>
#include <vector>

#include "CollectAreas.h"
#include "ProcessorText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kProcessorsFolder = "/sys/devices/system/cpu/";

/// The logical processors of one package.
using TPackage = std::vector<TLogicalProcessor>;

std::string GetFolder(const TLogicalProcessor& processor) {
  return kProcessorsFolder + ("cpu" + std::to_string(processor.index)) + '/';
}

std::string GetPackageId(std::uint32_t package) { return "socket" + std::to_string(package); }

/// cpuinfo lacks the topology on most machines but x86; a machine that shows none has one package,
/// whose cores are its logical processors.
void CompleteTopology(const TMachineFiles& files, TLogicalProcessor& processor) {
  const std::string topology = GetFolder(processor) + "topology/";
  if (!processor.package) {
    processor.package =
        ParseNumber<std::uint32_t>(files.ReadValue(topology + "physical_package_id")).value_or(0);
  }
  if (!processor.core) {
    processor.core =
        ParseNumber<std::uint32_t>(files.ReadValue(topology + "core_id")).value_or(processor.index);
  }
}

std::map<std::uint32_t, TPackage> GroupByPackage(const TMachineFiles& files,
                                                 std::vector<TLogicalProcessor> processors) {
  std::map<std::uint32_t, TPackage> packages;
  for (TLogicalProcessor& processor : processors) {
    CompleteTopology(files, processor);
    packages[*processor.package].push_back(processor);
  }
  return packages;
}

std::set<std::uint32_t> FindCores(const TPackage& package) {
  std::set<std::uint32_t> cores;
  for (const TLogicalProcessor& processor : package) cores.insert(*processor.core);
  return cores;
}

std::optional<std::uint32_t> FindMaximumMegaHertz(const TMachineFiles& files,
                                                  const TLogicalProcessor& processor) {
  const std::optional<std::uint32_t> kiloHertz = ParseNumber<std::uint32_t>(
      files.ReadValue(GetFolder(processor) + "cpufreq/cpuinfo_max_freq"));
  if (!kiloHertz) return std::nullopt;
  return *kiloHertz / 1000;
}

TInstanceDraft DraftProcessor(const TCollection& collection, std::uint32_t number,
                              const TPackage& package) {
  const TLogicalProcessor& first = package.front();
  const std::uint16_t family = FindProcessorFamily(first);
  TInstanceDraft draft = collection.DraftDevice("CIM_Processor", GetPackageId(number));
  draft.Set("Role", "Central Processor")
      .SetText("Name", first.modelName)
      .SetText("ElementName", first.modelName)
      .SetText("Description", first.vendor)
      .SetText("Stepping", first.stepping)
      .SetCode("Family", family)
      .Set("CurrentClockSpeed", first.megaHertz)
      .Set("MaxClockSpeed", FindMaximumMegaHertz(collection.GetFiles(), first))
      .Set("DataWidth", first.addressBits)
      .Set("AddressWidth", first.addressBits)
      .SetCode("CPUStatus", 1)
      .SetCode("EnabledState", 2)
      .SetCode("NumberOfEnabledCores", static_cast<unsigned>(FindCores(package).size()));
  if (family == 1) draft.SetText("OtherFamilyDescription", first.modelName);
  return draft;
}

void AddCores(TCollection& collection, const TCIMReference& processor, std::uint32_t number,
              const TPackage& package) {
  for (const std::uint32_t core : FindCores(package)) {
    const std::string id = GetPackageId(number) + "/core" + std::to_string(core);
    TInstanceDraft draft = collection.Draft("CIM_ProcessorCore");
    draft.Set("InstanceID", id).Set("ElementName", id);
    draft.SetCode("CoreEnabledState", 2).SetCode("EnabledState", 2);
    if (const std::optional<TCIMReference> path = collection.Add(std::move(draft)))
      collection.Add(collection.DraftComponent("CIM_ConcreteComponent", processor, *path));
  }
}

TInstanceDraft DraftCacheLink(const TCollection& collection, const TCIMReference& cache,
                              const TCIMReference& processor, const std::string& folder) {
  const TMachineFiles& files = collection.GetFiles();
  const std::string level = files.ReadValue(folder + "level");
  const std::uint16_t levelCode = ParseCacheLevel(level);
  TInstanceDraft draft = collection.DraftDependency("CIM_AssociatedCacheMemory", cache, processor);
  draft.SetCode("Level", levelCode)
      .SetCode("CacheType", ParseCacheType(files.ReadValue(folder + "type")))
      .SetCode("Associativity",
               ParseAssociativity(files.ReadValue(folder + "ways_of_associativity")))
      .Set("LineSize", ParseNumber<std::uint32_t>(files.ReadValue(folder + "coherency_line_size")));
  if (levelCode == 1) draft.Set("OtherLevelDescription", "Level " + level);
  return draft;
}

void AddCache(TCollection& collection, const TCIMReference& processor, const std::string& id,
              const std::string& folder) {
  const std::optional<std::uint64_t> size =
      ParseCacheSize(collection.GetFiles().ReadValue(folder + "size"));
  TInstanceDraft draft = collection.DraftDevice("CIM_Memory", id);
  draft.Set("ElementName", id).Set("Purpose", "Processor cache").Set("Volatile", true);
  if (size) draft.Set("BlockSize", std::uint64_t{1}).Set("NumberOfBlocks", *size);
  if (const std::optional<TCIMReference> cache =
          collection.AddPart(std::move(draft), "CIM_SystemDevice"))
    collection.Add(DraftCacheLink(collection, *cache, processor, folder));
}

/// A cache that several logical processors share shows under each of them, and is named after the
/// first.
void AddCaches(TCollection& collection, const TCIMReference& processor, const TPackage& package) {
  const TMachineFiles& files = collection.GetFiles();
  std::set<std::string> known;
  for (const TLogicalProcessor& logical : package) {
    const std::string caches = GetFolder(logical) + "cache/";
    for (const std::string& name : files.List(caches)) {
      const std::string folder = caches + name + '/';
      const std::string level = files.ReadValue(folder + "level");
      if (level.empty()) continue;
      const std::uint32_t first =
          ParseFirstOfList(files.ReadValue(folder + "shared_cpu_list")).value_or(logical.index);
      const std::string id =
          "cpu" + std::to_string(first) + "/L" + level + ' ' + files.ReadValue(folder + "type");
      if (known.insert(id).second) AddCache(collection, processor, id, folder);
    }
  }
}

}  // namespace

void CollectProcessors(TCollection& collection) {
  const std::string text = collection.Read("/proc/cpuinfo");
  const std::vector<TLogicalProcessor> processors = ParseProcessors(text);
  if (!text.empty() && processors.empty())
    collection.Note("/proc/cpuinfo", "It lists no processor in a form that is known");
  for (const auto& [number, package] : GroupByPackage(collection.GetFiles(), processors)) {
    const std::optional<TCIMReference> processor =
        collection.AddPart(DraftProcessor(collection, number, package), "CIM_SystemDevice");
    if (!processor) continue;
    AddCores(collection, *processor, number, package);
    AddCaches(collection, *processor, package);
  }
}

}  // namespace NZELVYR20

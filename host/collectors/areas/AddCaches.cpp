#include "AddCaches.h"

#include <algorithm>
#include <set>

#include "CollectAreas.h"
#include "ProcessorText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

TInstanceDraft DraftCacheLink(const TCollection& collection, const TCIMReference& cache,
                              const TCIMReference& processor, const TMachineFolder& folder) {
  const std::string level = folder.ReadValue("level");
  const std::string type = folder.ReadValue("type");
  const std::string ways = folder.ReadValue("ways_of_associativity");
  const std::uint16_t levelCode = ParseCacheLevel(level);
  const std::uint16_t typeCode = ParseCacheType(type);
  const std::uint16_t waysCode = ParseAssociativity(ways);
  TInstanceDraft draft = collection.DraftDependency("CIM_AssociatedCacheMemory", cache, processor);
  draft.SetCode("Level", levelCode)
      .SetCode("CacheType", typeCode)
      .SetCode("Associativity", waysCode)
      .Set("LineSize", ParseNumber<std::uint32_t>(folder.ReadValue("coherency_line_size")));
  if (levelCode == kOther) draft.Set("OtherLevelDescription", "Level " + level);
  if (typeCode == kOther) draft.Set("OtherCacheTypeDescription", type);
  if (waysCode == kOther) draft.Set("OtherAssociativityDescription", ways + "-way");
  return draft;
}

/// The caches of one processor.
class TCaches {
 public:
  TCaches(TCollection& collection, const TCIMReference& processor, const TAddedCores& cores)
      : collection_(collection), processor_(processor), cores_(cores) {}

  /// Those that show under that logical processor.
  void Add(std::uint32_t index);

 private:
  void AddCache(const std::string& id, const TMachineFolder& folder,
                const std::vector<std::uint32_t>& sharers);

  TCollection& collection_;
  const TCIMReference& processor_;
  const TAddedCores& cores_;
  std::set<std::string> known_;
};

void TCaches::AddCache(const std::string& id, const TMachineFolder& folder,
                       const std::vector<std::uint32_t>& sharers) {
  const std::optional<std::uint64_t> size = ParseCacheSize(folder.ReadValue("size"));
  TInstanceDraft draft = collection_.DraftDevice("CIM_Memory", id);
  draft.Set("ElementName", id).Set("Purpose", "Processor cache").Set("Volatile", true);
  if (size) SetSize(draft, {1, *size});
  const std::optional<TCIMReference> cache = collection_.AddPart(draft, "CIM_SystemDevice");
  if (!cache) return;
  collection_.Link(DraftCacheLink(collection_, *cache, processor_, folder));
  for (const auto& [core, threads] : cores_) {
    if (std::find_first_of(threads.begin(), threads.end(), sharers.begin(), sharers.end()) ==
        threads.end()) {
      continue;
    }
    collection_.Link(collection_.DraftDependency("CIM_ConcreteDependency", *cache, core));
  }
}

/// A cache that several logical processors share shows under each of them, and is named after the
/// first.
void TCaches::Add(std::uint32_t index) {
  const std::string name = "cpu" + std::to_string(index);
  const TMachineFolder caches(collection_.GetFiles(), "/sys/devices/system/cpu/" + name + "/cache");
  for (const std::string& entry : caches.GetNames()) {
    const TMachineFolder folder = caches.Enter(entry);
    const std::string level = folder.ReadValue("level");
    if (level.empty()) continue;
    std::vector<std::uint32_t> sharers = ParseList(folder.ReadValue("shared_cpu_list"));
    if (sharers.empty()) sharers.push_back(index);
    const std::string id =
        "cpu" + std::to_string(sharers.front()) + "/L" + level + ' ' + folder.ReadValue("type");
    if (known_.insert(id).second) AddCache(id, folder, sharers);
  }
}

}  // namespace

void AddCaches(TCollection& collection, const TCIMReference& processor, const TAddedCores& cores) {
  TCaches caches(collection, processor, cores);
  for (const auto& [core, threads] : cores) {
    for (const std::uint32_t index : threads) caches.Add(index);
  }
}

}  // namespace NZELVYR20

#include <algorithm>
#include <map>
#include <set>
#include <vector>

#include "AddCaches.h"
#include "CollectAreas.h"
#include "ProcessorFlags.h"
#include "ProcessorText.h"
#include "SystemText.h"
#include "TIdentities.h"
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

/// A core, and the numbers of its logical processors.
struct TCore {
  std::string name;
  std::vector<std::uint32_t> threads;
  std::string neighbours;  ///< the logical processors of its cluster
};

/// Logical processors of one core say the same about their siblings; where nothing is said, they
/// have the core's number. Boards count cores anew in each cluster, so that the number alone names
/// only the first of them.
std::vector<TCore> ListCores(const TMachineFiles& files, std::uint32_t number,
                             const TPackage& package) {
  std::map<std::string, std::size_t> bySiblings;
  std::set<std::string> names;
  std::vector<TCore> cores;
  for (const TLogicalProcessor& processor : package) {
    std::string name = GetPackageId(number) + "/core" + std::to_string(*processor.core);
    const std::string siblings =
        files.ReadValue(GetFolder(processor) + "topology/thread_siblings_list");
    const auto [place, isNew] =
        bySiblings.emplace(siblings.empty() ? "of " + name : siblings, cores.size());
    if (isNew) {
      if (!names.insert(name).second) name += "/cpu" + std::to_string(processor.index);
      cores.push_back(
          {name, {}, files.ReadValue(GetFolder(processor) + "topology/cluster_cpus_list")});
    }
    cores[place->second].threads.push_back(processor.index);
  }
  return cores;
}

/// Of the fastest: a package may have cores of several kinds.
std::optional<std::uint32_t> FindMaximumMegaHertz(const TMachineFiles& files,
                                                  const TPackage& package) {
  std::optional<std::uint32_t> maximum;
  for (const TLogicalProcessor& processor : package) {
    const std::optional<std::uint32_t> kiloHertz = ParseNumber<std::uint32_t>(
        files.ReadValue(GetFolder(processor) + "cpufreq/cpuinfo_max_freq"));
    if (kiloHertz) maximum = std::max(maximum.value_or(0), *kiloHertz / 1000);
  }
  return maximum;
}

/// The name of the model, or of each where there are several.
std::string JoinModelNames(const TPackage& package) {
  std::set<std::string> known;
  std::string names;
  for (const TLogicalProcessor& processor : package) {
    if (processor.modelName.empty() || !known.insert(processor.modelName).second) continue;
    names += (names.empty() ? "" : " + ") + processor.modelName;
  }
  return names;
}

TInstanceDraft DraftProcessor(const TCollection& collection, std::uint32_t number,
                              const TPackage& package, std::size_t coreCount) {
  constexpr unsigned kHardwareThread = 5;
  const TLogicalProcessor& first = package.front();
  const std::string model = JoinModelNames(package);
  const std::uint16_t family = FindProcessorFamily(first);
  TInstanceDraft draft = collection.DraftDevice("CIM_Processor", GetPackageId(number));
  draft.Set("Role", "Central Processor")
      .SetText("Name", model)
      .SetText("ElementName", model)
      .SetText("Description", first.vendor)
      .SetText("Stepping", first.stepping)
      .SetCode("Family", family)
      .Set("CurrentClockSpeed", first.megaHertz)
      .Set("MaxClockSpeed", FindMaximumMegaHertz(collection.GetFiles(), package))
      .Set("DataWidth", first.addressBits)
      .Set("AddressWidth", first.addressBits)
      .SetCode("CPUStatus", 1)
      .SetCode("EnabledState", 2)
      .SetCode("NumberOfEnabledCores", static_cast<unsigned>(coreCount));
  TIdentities()
      .Add("Microcode", first.microcode)
      .Add("Virtualization", FindVirtualization(first.flags))
      .Add("Instruction sets", ListExtensions(first.flags.empty() ? first.features : first.flags))
      .Add("Governor",
           collection.GetFiles().ReadValue(GetFolder(first) + "cpufreq/scaling_governor"))
      .SetIn(draft);
  std::vector<unsigned> characteristics = FindCharacteristics(first.flags);
  if (coreCount < package.size()) characteristics.push_back(kHardwareThread);
  if (!characteristics.empty()) draft.SetCodes("Characteristics", characteristics);
  if (family == kOther) {
    draft.SetText("OtherFamilyDescription", first.isa.empty() ? model : "RISC-V " + first.isa);
  }
  return draft;
}

void AddThreads(TCollection& collection, const TCIMReference& core,
                const std::vector<std::uint32_t>& threads) {
  for (const std::uint32_t index : threads) {
    const std::string name = "cpu" + std::to_string(index);
    TInstanceDraft draft = collection.Draft("CIM_HardwareThread");
    draft.Set("InstanceID", name).Set("ElementName", name).SetCode("EnabledState", 2);
    if (const std::optional<TCIMReference> path = collection.Add(draft)) {
      collection.Link(collection.DraftComponent("CIM_ConcreteComponent", core, *path));
    }
  }
}

/// Boards have processors in clusters of several cores; where each core is a cluster, or all are
/// one, there is nothing to tell.
std::map<std::string, std::string> NameClusters(const TMachineFiles& files, std::uint32_t package,
                                                const std::vector<TCore>& cores) {
  std::map<std::string, std::string> names;
  for (const TCore& core : cores) {
    if (core.neighbours.empty()) continue;
    const std::string number =
        files.ReadValue(kProcessorsFolder + ("cpu" + std::to_string(core.threads.front())) +
                        "/topology/cluster_id");
    names.emplace(core.neighbours, GetPackageId(package) + "/cluster" + number);
  }
  if (names.size() < 2 || names.size() == cores.size()) names.clear();
  return names;
}

void AddClusters(TCollection& collection, const TCIMReference& processor,
                 const std::map<std::string, std::string>& clusters,
                 const std::multimap<std::string, TCIMReference>& cores) {
  for (const auto& [neighbours, name] : clusters) {
    TInstanceDraft draft = collection.Draft("CIM_ConcreteCollection");
    draft.Set("InstanceID", name)
        .Set("ElementName", name)
        .Set("Description", "Cluster of the processors " + neighbours);
    const std::optional<TCIMReference> cluster = collection.Add(draft);
    if (!cluster) continue;
    collection.Link(collection.DraftComponent("CIM_ConcreteComponent", processor, *cluster));
    const auto [begin, end] = cores.equal_range(neighbours);
    for (auto core = begin; core != end; ++core) {
      collection.Link(collection.Draft("CIM_MemberOfCollection")
                          .Set("Collection", *cluster)
                          .Set("Member", core->second));
    }
  }
}

TAddedCores AddCores(TCollection& collection, const TCIMReference& processor, std::uint32_t package,
                     const std::vector<TCore>& cores) {
  const auto clusters = NameClusters(collection.GetFiles(), package, cores);
  std::multimap<std::string, TCIMReference> byCluster;
  TAddedCores added;
  for (const auto& [name, threads, neighbours] : cores) {
    TInstanceDraft draft = collection.Draft("CIM_ProcessorCore");
    draft.Set("InstanceID", name).Set("ElementName", name);
    draft.SetCode("CoreEnabledState", 2).SetCode("EnabledState", 2);
    if (const std::optional<TCIMReference> path = collection.Add(draft)) {
      collection.Link(collection.DraftComponent("CIM_ConcreteComponent", processor, *path));
      AddThreads(collection, *path, threads);
      byCluster.emplace(neighbours, *path);
      added.emplace_back(*path, threads);
    }
  }
  AddClusters(collection, processor, clusters, byCluster);
  return added;
}

/// Some kernels do not list their processors one by one in cpuinfo; then those that are online
/// are shown, all alike.
std::vector<TLogicalProcessor> FindProcessors(TCollection& collection) {
  const std::string path = "/proc/cpuinfo";
  const std::string text = collection.Read(path);
  auto [processors, shared] = ParseProcessors(text);
  const std::vector<std::uint32_t> online =
      ParseList(collection.GetFiles().ReadValue(kProcessorsFolder + std::string("online")));
  const bool isKnown = !(shared.modelName.empty() && shared.vendor.empty());
  if (processors.empty()) {
    for (const std::uint32_t index : online) processors.emplace_back(shared).index = index;
  }
  if (processors.empty() && isKnown) {
    processors.push_back(shared);
    collection.Note(path, "It does not list the processors one by one; one is shown");
  }
  if (processors.empty() && !text.empty()) {
    collection.Note(path, "It lists no processor in a form that is known");
  }
  if (!online.empty() && processors.size() != online.size()) {
    collection.Note(path, "Of " + std::to_string(online.size()) + " processors that are online, " +
                              std::to_string(processors.size()) + " are listed");
  }
  return processors;
}

}  // namespace

TProcessorsByIndex CollectProcessors(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  const std::vector<TLogicalProcessor> processors = FindProcessors(collection);
  const auto load = ParseLoadPercentage(files.ReadValue("/proc/loadavg"), processors.size());
  TProcessorsByIndex byIndex;
  for (const auto& [number, package] : GroupByPackage(files, processors)) {
    const std::vector<TCore> cores = ListCores(files, number, package);
    const std::optional<TCIMReference> processor = collection.AddPart(
        DraftProcessor(collection, number, package, cores.size()).Set("LoadPercentage", load),
        "CIM_SystemDevice");
    if (!processor) continue;
    AddCaches(collection, *processor, AddCores(collection, *processor, number, cores));
    for (const TLogicalProcessor& logical : package) byIndex.emplace(logical.index, *processor);
  }
  return byIndex;
}

}  // namespace NZELVYR20

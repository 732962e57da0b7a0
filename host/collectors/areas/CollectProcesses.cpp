#include <unistd.h>

#include "CollectAreas.h"
#include "ProcessText.h"
#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

/// By what the kernel's numbers are to be multiplied or divided.
struct TKernelUnits {
  std::uint64_t ticksPerSecond = static_cast<std::uint64_t>(sysconf(_SC_CLK_TCK));
  std::uint64_t pageSize = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
  std::optional<std::uint64_t> startOfSystem;
};

std::optional<std::uint64_t> ToMilliseconds(std::uint64_t ticks, const TKernelUnits& units) {
  constexpr std::uint64_t kMilli = 1000;
  const auto product = Multiply(ticks, kMilli);
  return product ? std::optional(*product / units.ticksPerSecond) : std::nullopt;
}

TInstanceDraft DraftProcess(const TCollection& collection, const TOperatingSystem& operatingSystem,
                            const std::string& id, const TProcessFacts& facts,
                            const TKernelUnits& units) {
  TInstanceDraft draft =
      collection.DraftOf(operatingSystem.name, "CIM_UnixProcess").Set("Handle", id);
  draft.Set("Name", facts.name)
      .Set("ElementName", facts.name)
      .SetCode("ExecutionState", facts.state)
      .Set("ParentProcessID", facts.parent)
      .Set("ProcessGroupID", facts.group)
      .Set("ProcessSessionID", facts.session)
      .Set("Priority", facts.priority)
      .Set("UserModeTime", ToMilliseconds(facts.userTime, units))
      .Set("KernelModeTime", ToMilliseconds(facts.kernelTime, units))
      .Set("WorkingSetSize", Multiply(facts.residentPages, units.pageSize));
  if (const auto started = Add(units.startOfSystem, facts.startTime / units.ticksPerSecond)) {
    draft.Set("CreationDate", ToTimeStamp(*started));
  }
  return draft;
}

}  // namespace

void CollectProcesses(TCollection& collection, const TOperatingSystem& operatingSystem) {
  const TMachineFiles& files = collection.GetFiles();
  TKernelUnits units;
  units.startOfSystem = ParseBootTime(files.ReadTable("/proc/stat"));
  for (const std::string& id : TMachineFolder(files, "/proc").GetNames()) {
    if (!ParseUnsigned(id)) continue;
    // One that has ended meanwhile has no such file any more.
    const auto facts = ParseProcess(files.ReadValue("/proc/" + id + "/stat"));
    if (!facts) continue;
    const auto process =
        collection.Add(DraftProcess(collection, operatingSystem, id, *facts, units));
    if (!process) continue;
    collection.Link(collection.DraftComponent("CIM_OSProcess", operatingSystem.path, *process));
  }
}

}  // namespace NZELVYR20

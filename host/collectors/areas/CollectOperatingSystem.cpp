#include <sys/utsname.h>

#include <algorithm>

#include "CollectAreas.h"
#include "SystemText.h"
#include "TOSSpecific.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr unsigned kLinuxType = 36;

std::string FindKernelRelease(const TMachineFiles& files) {
  std::string release = files.ReadValue("/proc/sys/kernel/osrelease");
  utsname system = {};
  if (release.empty() && files.IsLive() && uname(&system) == 0) release = system.release;
  return release;
}

std::string FindName(const TMachineFiles& files) {
  for (const char* path : {"/etc/os-release", "/usr/lib/os-release"}) {
    const TReleaseFacts release = ParseRelease(files.ReadValue(path));
    if (!release.prettyName.empty()) return release.prettyName;
    if (!release.name.empty()) return release.name;
  }
  return {};
}

/// The folders of /proc that are numbers; nothing where there are none, as in a saved tree.
std::optional<std::uint32_t> CountProcesses(const TMachineFiles& files) {
  const std::vector<std::string> names = TMachineFolder(files, "/proc").GetNames();
  const auto count = std::count_if(names.begin(), names.end(), [](const std::string& name) {
    return ParseUnsigned(name).has_value();
  });
  if (count == 0) return std::nullopt;
  return static_cast<std::uint32_t>(count);
}

std::optional<std::uint32_t> CountUsersOf(const TMachineFiles& files) {
  const std::string path = "/run/utmp";
  std::string why;
  const std::optional<std::string> records = files.Read(path, why);
  return records ? CountUsers(*records) : std::nullopt;
}

void SetMemory(TInstanceDraft& draft, const TMemoryFacts& memory) {
  draft.Set("TotalVisibleMemorySize", memory.total)
      .Set("FreePhysicalMemory", memory.free)
      .Set("SizeStoredInPagingFiles", memory.swapTotal)
      .Set("FreeSpaceInPagingFiles", memory.swapFree)
      .Set("TotalVirtualMemorySize", Add(memory.total, memory.swapTotal))
      .Set("FreeVirtualMemory", Add(memory.free, memory.swapFree));
}

void SetTimes(TCollection& collection, TInstanceDraft& draft) {
  const std::optional<std::uint64_t> start = ParseBootTime(collection.Read("/proc/stat"));
  if (start) draft.Set("LastBootUpTime", ToTimeStamp(*start));
  if (collection.GetFiles().IsLive()) {
    draft.Set("LocalDateTime", TOSSpecific::GetLocalTime());
    return;
  }
  // A saved tree shows the moment at which it was saved.
  const std::string uptime = collection.GetFiles().ReadValue("/proc/uptime");
  const std::optional<std::uint64_t> moment = Add(start, ParseUptime(uptime));
  if (moment) draft.Set("LocalDateTime", ToTimeStamp(*moment));
}

void AddToComputer(TCollection& collection, const TCIMReference& operatingSystem) {
  const std::optional<TCIMReference>& system = collection.GetSystem();
  if (!system) return;
  collection.Link(collection.DraftDependency("CIM_RunningOS", operatingSystem, *system));
  collection.Link(collection.DraftComponent("CIM_InstalledOS", *system, operatingSystem)
                      .Set("PrimaryOS", true));
}

}  // namespace

std::optional<TOperatingSystem> CollectOperatingSystem(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  const std::string release = FindKernelRelease(files);
  const std::string name = FindName(files);
  if (name.empty()) collection.Note("/etc/os-release", "It names no operating system");
  if (release.empty()) collection.Note("/proc/sys/kernel/osrelease", "It names no release");
  if (name.empty() && release.empty()) return std::nullopt;

  const std::string known = name.empty() ? "Linux" : name;
  TInstanceDraft draft = collection.DraftElement("CIM_OperatingSystem", known);
  draft.SetCode("OSType", kLinuxType)
      .SetCode("EnabledState", 2)
      .SetText("ElementName", name)
      .SetText("Version", release)
      .SetText("Description", files.ReadValue("/proc/version"))
      .Set("NumberOfProcesses", CountProcesses(files))
      .Set("NumberOfUsers", CountUsersOf(files))
      .Set("MaxNumberOfProcesses",
           ParseNumber<std::uint32_t>(files.ReadValue("/proc/sys/kernel/pid_max")));
  SetMemory(draft, ParseMemory(collection.Read("/proc/meminfo")));
  SetTimes(collection, draft);
  const std::optional<TCIMReference> path = collection.Add(draft);
  if (!path) return std::nullopt;
  AddToComputer(collection, *path);
  return TOperatingSystem{*path, known};
}

}  // namespace NZELVYR20

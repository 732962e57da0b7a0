#include <algorithm>
#include <array>
#include <map>
#include <set>

#include "CollectAreas.h"
#include "ServiceText.h"

namespace NZELVYR20 {
namespace {

constexpr std::string_view kServiceEnding = ".service";

/// Where units stand. What a folder has goes before the same in those after it.
struct TUnitFolder {
  const char* path;
  const char* state;  ///< UnitFileState of what stands there, where the place decides it
  bool isDecision;    ///< whether a link there was made by who manages the machine
};

constexpr std::array<TUnitFolder, 8> kUnitFolders = {
    {{"/etc/systemd/system", "", true},
     {"/run/systemd/system", "", true},
     {"/run/systemd/transient", "transient", false},
     {"/run/systemd/generator", "generated", false},
     {"/usr/local/lib/systemd/system", "", false},
     {"/usr/lib/systemd/system", "", false},
     {"/lib/systemd/system", "", false},
     {"/run/systemd/generator.late", "generated", false}}};

bool EndsWith(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && text.substr(text.size() - ending.size()) == ending;
}

std::string GetLastPart(const std::string& path) { return path.substr(path.rfind('/') + 1); }

/// What is known of a unit before its file is read.
struct TUnit {
  std::size_t folder = kUnitFolders.size();  ///< where its file is; that many for nowhere
  bool isMasked = false;
};

/// Collects the services of one machine.
class TServices {
 public:
  explicit TServices(TCollection& collection) : collection_(collection) {}

  void Collect();

 private:
  void ListUnits(std::size_t index);
  void ListLink(std::size_t index, const std::string& name, const std::string& target);
  void ListWanted(const TMachineFolder& links, bool isDecision);
  void ListStarted();
  void ListControlGroups(const TMachineFolder& folder, unsigned levels);
  const TUnit* FindUnit(const std::string& name) const;
  void AddService(const std::string& name);
  std::string FindState(const std::string& name, const TUnit& unit, const TUnitFacts& facts) const;

  TCollection& collection_;
  std::vector<TMachineFolder> folders_;
  std::map<std::string, TUnit> units_;
  std::set<std::string> wanted_;   ///< started with others
  std::set<std::string> enabled_;  ///< the same, since somebody wanted it so
  std::set<std::string> started_;
};

/// A link by another name is an alias, and one to nowhere keeps the unit from being started.
void TServices::ListLink(std::size_t index, const std::string& name, const std::string& target) {
  const std::string real = GetLastPart(target);
  const bool isAlias = EndsWith(real, kServiceEnding) && real != name;
  if (!isAlias) units_.emplace(name, TUnit{index, target == "/dev/null"});
  if (isAlias && kUnitFolders[index].isDecision) enabled_.insert(real);
}

void TServices::ListWanted(const TMachineFolder& links, bool isDecision) {
  for (const std::string& name : links.GetNames()) {
    if (!EndsWith(name, kServiceEnding)) continue;
    wanted_.insert(name);
    if (isDecision) enabled_.insert(name);
  }
}

void TServices::ListUnits(std::size_t index) {
  const TMachineFolder& folder = folders_[index];
  for (const std::string& name : folder.GetNames()) {
    if (EndsWith(name, ".wants") || EndsWith(name, ".requires")) {
      ListWanted(folder.Enter(name), kUnitFolders[index].isDecision);
    }
    if (EndsWith(name, kServiceEnding)) ListLink(index, name, folder.ReadLink(name));
  }
}

/// systemd makes a group of processes for each service that runs.
void TServices::ListControlGroups(const TMachineFolder& folder, unsigned levels) {
  for (const std::string& name : folder.GetNames()) {
    if (EndsWith(name, kServiceEnding)) started_.insert(name);
    if (levels > 0 && EndsWith(name, ".slice")) ListControlGroups(folder.Enter(name), levels - 1);
  }
}

void TServices::ListStarted() {
  constexpr unsigned kLevels = 8;
  const TMachineFiles& files = collection_.GetFiles();
  // With the groups' older kind they are in one of several trees.
  for (const char* root : {"/sys/fs/cgroup", "/sys/fs/cgroup/systemd"}) {
    ListControlGroups(TMachineFolder(files, root), kLevels);
  }
  // What has done its work and left no process shows here, too, until it is stopped.
  static const std::string kPrefix = "invocation:";
  for (const std::string& entry : TMachineFolder(files, "/run/systemd/units").GetNames()) {
    const bool isService =
        entry.compare(0, kPrefix.size(), kPrefix) == 0 && EndsWith(entry, kServiceEnding);
    if (isService) started_.insert(entry.substr(kPrefix.size()));
  }
}

const TUnit* TServices::FindUnit(const std::string& name) const {
  auto found = units_.find(name);
  if (found == units_.end()) found = units_.find(FindUnitTemplate(name));
  return found == units_.end() ? nullptr : &found->second;
}

std::string TServices::FindState(const std::string& name, const TUnit& unit,
                                 const TUnitFacts& facts) const {
  if (unit.isMasked) return "masked";
  if (*kUnitFolders[unit.folder].state != '\0') return kUnitFolders[unit.folder].state;
  if (enabled_.count(name) > 0) return "enabled";
  return facts.canBeEnabled ? "disabled" : "static";
}

void TServices::AddService(const std::string& name) {
  const TUnit* unit = FindUnit(name);
  const bool isStarted = started_.count(name) > 0;
  const bool isAutomatic = wanted_.count(name) + enabled_.count(name) > 0;
  // A link may outlive what it was made for.
  if (!isStarted && !unit) return;
  TInstanceDraft draft = collection_.DraftAccessPoint("VYR_SystemdService", name);
  draft.Set("ElementName", name)
      .Set("Started", isStarted)
      .SetCode("EnabledState", isStarted ? 2 : 3)
      .SetCodes("OperationalStatus", {isStarted ? 2U : 10U});
  if (unit) {
    const std::string file = units_.count(name) > 0 ? name : FindUnitTemplate(name);
    const TUnitFacts facts =
        unit->isMasked ? TUnitFacts() : ParseUnit(folders_[unit->folder].ReadValue(file));
    draft.SetText("Description", FillUnitText(facts.description, name))
        .Set("UnitFileState", FindState(name, *unit, facts));
    if (!unit->isMasked) draft.Set("StartMode", isAutomatic ? "Automatic" : "Manual");
  }
  const std::optional<TCIMReference> path = collection_.Add(draft);
  if (!path || !collection_.GetSystem()) return;
  collection_.Link(
      collection_.DraftDependency("CIM_HostedService", *collection_.GetSystem(), *path));
}

void TServices::Collect() {
  folders_.reserve(kUnitFolders.size());
  for (const TUnitFolder& folder : kUnitFolders) {
    folders_.emplace_back(collection_.GetFiles(), folder.path);
    ListUnits(folders_.size() - 1);
  }
  ListStarted();
  std::set<std::string> names = started_;
  names.insert(wanted_.begin(), wanted_.end());
  for (const auto& [name, unit] : units_) names.insert(name);
  for (const std::string& name : names) {
    if (!IsUnitTemplate(name)) AddService(name);
  }
}

}  // namespace

void CollectServices(TCollection& collection) {
  // Where another program starts the services nobody heeds the files of this one.
  if (!collection.GetFiles().IsFolder("/run/systemd/system")) return;
  TServices(collection).Collect();
}

}  // namespace NZELVYR20

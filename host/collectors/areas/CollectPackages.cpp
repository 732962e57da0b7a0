#include <array>
#include <map>

#include "CollectAreas.h"
#include "PackageText.h"
#include "ReadRpmDatabase.h"

namespace NZELVYR20 {
namespace {

const char* const kDpkgStatus = "/var/lib/dpkg/status";

constexpr std::array<const char*, 2> kRpmDatabases = {"/usr/lib/sysimage/rpm/rpmdb.sqlite",
                                                      "/var/lib/rpm/rpmdb.sqlite"};
/// What rpm kept its database in before, and elsewhere.
constexpr std::array<const char*, 3> kOtherRpmDatabases = {
    "/usr/lib/sysimage/rpm/Packages.db", "/var/lib/rpm/Packages.db", "/var/lib/rpm/Packages"};

void AddPackage(TCollection& collection, const TPackageFacts& package, const std::string& id) {
  TInstanceDraft draft = collection.Draft("CIM_SoftwareIdentity");
  draft.Set("InstanceID", id)
      .Set("Name", package.name)
      .Set("ElementName", package.name)
      .SetText("Description", package.summary)
      .SetText("VersionString", package.version)
      .SetText("Manufacturer", package.maintainer);
  const std::optional<TCIMReference> path = collection.Add(draft);
  if (!path || !collection.GetSystem()) return;
  collection.Link(collection.Draft("CIM_InstalledSoftwareIdentity")
                      .Set("InstalledSoftware", *path)
                      .Set("System", *collection.GetSystem()));
}

/// One package may be there for several architectures, and of some, such as the kernel, rpm keeps
/// several versions side by side.
void AddPackages(TCollection& collection, const std::string& manager,
                 const std::vector<TPackageFacts>& packages) {
  const auto getId = [&manager](const TPackageFacts& package) {
    return manager + ':' + package.name + ':' + package.architecture;
  };
  std::map<std::string, unsigned> counts;
  for (const TPackageFacts& package : packages) ++counts[getId(package)];
  for (const TPackageFacts& package : packages) {
    const std::string id = getId(package);
    AddPackage(collection, package, counts[id] > 1 ? id + ':' + package.version : id);
  }
}

/// The first of the paths that is there; empty where none is.
template <std::size_t count>
std::string FindFirst(const TMachineFiles& files, const std::array<const char*, count>& paths) {
  for (const char* path : paths) {
    if (files.Find(path).IsOpen()) return path;
  }
  return {};
}

}  // namespace

void CollectPackages(TCollection& collection) {
  const TMachineFiles& files = collection.GetFiles();
  const std::string rpm = FindFirst(files, kRpmDatabases);
  const std::string otherRpm = rpm.empty() ? FindFirst(files, kOtherRpmDatabases) : std::string();
  if (!rpm.empty()) {
    std::string why;
    AddPackages(collection, "rpm", ReadRpmDatabase(files, rpm, why));
    if (!why.empty()) collection.Note(rpm, why);
  }
  if (!otherRpm.empty()) collection.Note(otherRpm, "A database of this kind is not read");
  const bool isRpm = !rpm.empty() || !otherRpm.empty();
  // With rpm there is that of dpkg on few machines only.
  const std::string status = isRpm ? files.ReadTable(kDpkgStatus) : collection.Read(kDpkgStatus);
  AddPackages(collection, "dpkg", ParsePackages(status));
}

}  // namespace NZELVYR20

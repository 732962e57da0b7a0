#include "MakeInterop.h"

#include "INamespaceProvider.h"
#include "LoadMof.h"
#include "MachineName.h"
#include "TInstanceDraft.h"
#include "VYRVersion.h"

namespace NZELVYR20 {
namespace {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

constexpr const char* kSystemClass = "CIM_ComputerSystem";
constexpr const char* kManagerClass = "CIM_ObjectManager";
constexpr const char* kNamespaceClass = "CIM_Namespace";

/// Where nothing describes the machine, it is the one on which the server runs.
std::string SystemName(ICIMNamespace& machine) {
  const std::string name = FindMachineName(machine);
  return name.empty() ? "localhost" : name;
}

std::string VersionText() {
  const int version = GetVersion();
  return std::to_string(version / 10000) + '.' + std::to_string(version / 100 % 100) + '.' +
         std::to_string(version % 100);
}

/// Clients take what follows " version " for the version.
void AddManager(const TNamespacePtr& interop, const std::string& system, const std::string& name) {
  TInstanceDraft(interop, kManagerClass)
      .SetText("SystemCreationClassName", kSystemClass)
      .SetText("SystemName", system)
      .SetText("CreationClassName", kManagerClass)
      .SetText("Name", name)
      .SetText("ElementName", "vyrhost")
      .SetText("Description", "vyrhost, a server of CIM, version " + VersionText())
      .Set("Started", true)
      .Set("GatherStatisticalData", false)
      .SetCode("EnabledState", 2)
      .SetCodes("OperationalStatus", {2})
      .Add();
}

void AddNamespace(const TNamespacePtr& interop, const std::string& system,
                  const std::string& manager, const std::string& name) {
  TInstanceDraft(interop, kNamespaceClass)
      .SetText("SystemCreationClassName", kSystemClass)
      .SetText("SystemName", system)
      .SetText("ObjectManagerCreationClassName", kManagerClass)
      .SetText("ObjectManagerName", manager)
      .SetText("CreationClassName", kNamespaceClass)
      .SetText("Name", name)
      .SetText("ElementName", name)
      .SetCode("ClassInfo", 1)
      .SetText("DescriptionOfClassInfo", "CIM 2, in part")
      .SetCode("ClassType", 2)
      .Add();
}

/// The machine's classes are the standard's, but no profile of the standard's is kept in full.
void AddProfile(const TNamespacePtr& interop) {
  TInstanceDraft(interop, "CIM_RegisteredProfile")
      .SetText("InstanceID", "VYR:Machine")
      .SetText("ElementName", "Machine")
      .SetCode("SpecificationType", 2)
      .SetCode("RegisteredOrganization", 1)
      .SetText("OtherRegisteredOrganization", "VYR")
      .SetText("RegisteredName", "Machine")
      .SetText("RegisteredVersion", VersionText())
      .SetCodes("AdvertiseTypes", {2})
      .Add();
}

}  // namespace

TNamespacePtr MakeInterop(ICIMNamespace& machine, const std::vector<std::string>& names) {
  TNamespacePtr interop = machine.GetNamespaceProvider({})->AllocateNamespace({}, false);
  LoadSchema(interop, {}, "interop.mof");
  const std::string system = SystemName(machine);
  const std::string manager = "VYR:" + system;
  AddManager(interop, system, manager);
  for (const std::string& name : names) AddNamespace(interop, system, manager, name);
  AddProfile(interop);
  return interop;
}

}  // namespace NZELVYR20

#include <set>

#include "CollectAreas.h"
#include "DisplayText.h"
#include "PciText.h"
#include "TIdentities.h"

namespace NZELVYR20 {
namespace {

const char* const kDisplaysFolder = "/sys/class/drm";

/// Adds a controller, by its function where it has one.
std::optional<TCIMReference> AddController(TCollection& collection, const std::string& name,
                                           const TPciFunction* function) {
  TInstanceDraft draft = collection.DraftDevice("CIM_DisplayController", name);
  draft.Set("Name", name)
      .Set("ElementName", function && !function->model.empty() ? function->model : name)
      .SetText("VideoProcessor", function ? function->model : std::string());
  auto controller = collection.AddPart(draft, "CIM_SystemDevice");
  if (controller && function) {
    collection.Link(collection.DraftDependency("CIM_ControlledBy", function->path, *controller));
  }
  return controller;
}

unsigned FindEnabledState(const std::string& text) {
  if (text.empty()) return 0;
  return text == "enabled" ? 2 : 3;
}

/// A display, by the folder of the connector that it is at: "card0-HDMI-A-1".
void AddDisplay(TCollection& collection, const TCIMReference& controller, const std::string& name,
                const TMachineFolder& folder) {
  const std::string path = kDisplaysFolder + ('/' + name) + "/edid";
  const std::string edid = collection.GetFiles().ReadTable(path);
  const auto facts = ParseDisplay(edid);
  if (!facts && !edid.empty()) collection.Note(path, "It is damaged");
  const TDisplayFacts known = facts.value_or(TDisplayFacts());
  const std::string connector = name.substr(name.find('-') + 1);
  const bool isBuiltIn = IsForBuiltInDisplay(connector);
  TInstanceDraft draft =
      collection.DraftDevice(isBuiltIn ? "CIM_FlatPanel" : "CIM_DesktopMonitor", name);
  draft.Set("Name", connector)
      .Set("ElementName", known.name.empty() ? connector : known.name)
      .Set(isBuiltIn ? "HorizontalResolution" : "ScreenWidth", known.width)
      .Set(isBuiltIn ? "VerticalResolution" : "ScreenHeight", known.height)
      .SetCode("EnabledState", FindEnabledState(folder.ReadValue("enabled")));
  TIdentities()
      .Add("Maker", known.maker)
      .Add("Product", known.product)
      .Add("Serial number", known.serialNumber)
      .Add("Year", known.year)
      .SetIn(draft);
  const auto display = collection.AddPart(draft, "CIM_SystemDevice");
  if (display) {
    collection.Link(collection.DraftDependency("CIM_ControlledBy", controller, *display));
  }
}

}  // namespace

void CollectDisplays(TCollection& collection, const TPciFunctions& functions) {
  const TMachineFiles& files = collection.GetFiles();
  const TMachineFolder folders(files, kDisplaysFolder);
  std::map<std::string, TCIMReference> controllers;
  std::set<std::string> driven;
  for (const std::string& name : folders.GetNames()) {
    if (!IsDisplayController(name)) continue;
    const auto function =
        functions.find(FindPciFunction(files.ReadLink(kDisplaysFolder + ('/' + name))));
    const bool isPci = function != functions.end();
    if (isPci) driven.insert(function->first);
    const auto controller = AddController(collection, name, isPci ? &function->second : nullptr);
    if (controller) controllers.emplace(name, *controller);
  }
  // Without a driver for pictures it is one nevertheless.
  for (const auto& [address, function] : functions) {
    if (!function.isDisplay || driven.count(address) > 0) continue;
    AddController(collection, address, &function);
  }
  for (const std::string& name : folders.GetNames()) {
    const auto controller = controllers.find(name.substr(0, name.find('-')));
    if (controller == controllers.end() || name == controller->first) continue;
    const TMachineFolder folder = folders.Enter(name);
    if (folder.ReadValue("status") != "connected") continue;
    AddDisplay(collection, controller->second, name, folder);
  }
}

}  // namespace NZELVYR20

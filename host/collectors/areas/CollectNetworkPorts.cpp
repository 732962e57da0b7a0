#include "CollectAreas.h"
#include "NetworkText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kPortsFolder = "/sys/class/net";

constexpr std::uint16_t kEthernet = 2;
constexpr std::uint16_t kWirelessLan = 11;

TLinkKind FindLinkKind(const TMachineFolder& folder) {
  // A wireless port says that it is an Ethernet, too.
  if (folder.HasFolder("wireless") || folder.HasFolder("phy80211")) return {kWirelessLan, {}};
  return ParseLinkKind(folder.ReadValue("type"));
}

void SetAddresses(TInstanceDraft& draft, const TMachineFolder& folder) {
  const std::string address = ParseHardwareAddress(folder.ReadValue("address"));
  if (address.empty()) return;
  draft.SetTexts("NetworkAddresses", {address});
  // 0: as its maker gave it. Otherwise it was drawn by lot, taken from another port or set.
  if (folder.ReadValue("addr_assign_type") == "0") draft.Set("PermanentAddress", address);
}

std::optional<TCIMReference> AddPort(TCollection& collection, const std::string& name,
                                     const TMachineFolder& folder) {
  const TLinkKind link = FindLinkKind(folder);
  const TPortState state = ParsePortState(folder.ReadValue("operstate"), folder.ReadValue("flags"));
  TInstanceDraft draft = collection.DraftDevice(
      link.technology == kEthernet ? "CIM_EthernetPort" : "CIM_NetworkPort", name);
  draft.Set("Name", name)
      .Set("ElementName", name)
      .SetText("Description", ParseDeviceType(folder.ReadValue("uevent")))
      .SetCode("PortType", 0)
      .SetCode("LinkTechnology", link.technology)
      .SetText("OtherLinkTechnology", link.other)
      .SetCodes("OperationalStatus", {state.operationalStatus})
      .SetCode("EnabledState", state.enabledState)
      .Set("Speed", ParsePortSpeed(folder.ReadValue("speed")))
      .Set("FullDuplex", ParseFullDuplex(folder.ReadValue("duplex")))
      .Set("ActiveMaximumTransmissionUnit", ParseUnsigned(folder.ReadValue("mtu")));
  SetAddresses(draft, folder);
  return collection.AddPart(draft, "CIM_SystemDevice");
}

}  // namespace

void CollectNetworkPorts(TCollection& collection, const TPciFunctions& functions) {
  const TMachineFolder ports = collection.Enter(kPortsFolder);
  for (const std::string& name : ports.GetNames()) {
    // Settings of drivers stand here, too, as plain files.
    if (!ports.HasFolder(name)) continue;
    if (const auto port = AddPort(collection, name, ports.Enter(name))) {
      LinkToFunction(collection, functions, kPortsFolder + ('/' + name), *port);
    }
  }
}

}  // namespace NZELVYR20

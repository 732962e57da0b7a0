#include "CollectAreas.h"
#include "NetworkText.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kPortsFolder = "/sys/class/net";

constexpr std::uint16_t kEthernet = 2;
constexpr std::uint16_t kWirelessLan = 11;

TLinkKind FindLinkKind(const TMachineFiles& files, const std::string& folder) {
  // A wireless port says that it is an Ethernet, too.
  if (files.IsFolder(folder + "wireless") || files.IsFolder(folder + "phy80211")) {
    return {kWirelessLan, {}};
  }
  return ParseLinkKind(files.ReadValue(folder + "type"));
}

void SetAddresses(TInstanceDraft& draft, const TMachineFiles& files, const std::string& folder) {
  const std::string address = ParseHardwareAddress(files.ReadValue(folder + "address"));
  if (address.empty()) return;
  draft.SetTexts("NetworkAddresses", {address});
  // 0: as its maker gave it. Otherwise it was drawn by lot, taken from another port or set.
  if (files.ReadValue(folder + "addr_assign_type") == "0") draft.Set("PermanentAddress", address);
}

void AddPort(TCollection& collection, const std::string& name) {
  const TMachineFiles& files = collection.GetFiles();
  const std::string folder = kPortsFolder + ("/" + name) + '/';
  const TLinkKind link = FindLinkKind(files, folder);
  const TPortState state =
      ParsePortState(files.ReadValue(folder + "operstate"), files.ReadValue(folder + "flags"));
  TInstanceDraft draft = collection.DraftDevice(
      link.technology == kEthernet ? "CIM_EthernetPort" : "CIM_NetworkPort", name);
  draft.Set("Name", name)
      .Set("ElementName", name)
      .SetText("Description", ParseDeviceType(files.ReadValue(folder + "uevent")))
      .SetCode("PortType", 0)
      .SetCode("LinkTechnology", link.technology)
      .SetText("OtherLinkTechnology", link.other)
      .SetCodes("OperationalStatus", {state.operationalStatus})
      .SetCode("EnabledState", state.enabledState)
      .Set("Speed", ParsePortSpeed(files.ReadValue(folder + "speed")))
      .Set("FullDuplex", ParseFullDuplex(files.ReadValue(folder + "duplex")))
      .Set("ActiveMaximumTransmissionUnit", ParseUnsigned(files.ReadValue(folder + "mtu")));
  SetAddresses(draft, files, folder);
  collection.AddPart(std::move(draft), "CIM_SystemDevice");
}

}  // namespace

void CollectNetworkPorts(TCollection& collection) {
  for (const std::string& name : collection.List(kPortsFolder)) {
    // Settings of drivers stand here, too, as plain files.
    if (collection.GetFiles().IsFolder(kPortsFolder + ("/" + name))) AddPort(collection, name);
  }
}

}  // namespace NZELVYR20

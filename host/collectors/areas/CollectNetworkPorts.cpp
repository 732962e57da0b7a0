#include "CollectAreas.h"
#include "NetworkText.h"
#include "TIdentities.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

const char* const kPortsFolder = "/sys/class/net";

constexpr std::uint16_t kEthernet = 2;
constexpr std::uint16_t kWirelessLan = 11;

/// Ports, each with one of those below it.
using TLayers = std::vector<std::pair<std::string, std::string>>;

TLinkKind FindLinkKind(const TMachineFolder& folder) {
  // A wireless port says that it is an Ethernet, too.
  if (folder.HasFolder("wireless") || folder.HasFolder("phy80211")) return {kWirelessLan, {}};
  return ParseLinkKind(folder.ReadValue("type"));
}

std::string FindPortClass(std::uint16_t technology) {
  if (technology == kWirelessLan) return "CIM_WiFiPort";
  return technology == kEthernet ? "CIM_EthernetPort" : "CIM_NetworkPort";
}

void SetAddresses(TInstanceDraft& draft, const TMachineFolder& folder) {
  const std::string address = ParseHardwareAddress(folder.ReadValue("address"));
  if (address.empty()) return;
  draft.SetTexts("NetworkAddresses", {address});
  // 0: as its maker gave it. Otherwise it was drawn by lot, taken from another port or set.
  if (folder.ReadValue("addr_assign_type") == "0") draft.Set("PermanentAddress", address);
}

/// How a port that is made of others works.
void SetLayer(TInstanceDraft& draft, const TMachineFolder& folder,
              const std::string& virtualNetwork) {
  const std::string mode =
      folder.HasFolder("bonding") ? folder.Enter("bonding").ReadValue("mode") : std::string();
  // After the word stands its number.
  TIdentities()
      .Add("Bonding mode", mode.substr(0, mode.find(' ')))
      .Add("VLAN", virtualNetwork)
      .SetIn(draft);
}

std::optional<TCIMReference> AddPort(TCollection& collection, const std::string& name,
                                     const TMachineFolder& folder, const TLinkKind& link,
                                     const std::string& virtualNetwork) {
  const TPortState state = ParsePortState(folder.ReadValue("operstate"), folder.ReadValue("flags"));
  TInstanceDraft draft = collection.DraftDevice(FindPortClass(link.technology), name);
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
  SetLayer(draft, folder, virtualNetwork);
  return collection.AddPart(draft, "CIM_SystemDevice");
}

/// The kernel counts with 64 bits where the standard has 32: counts that do not fit stay open.
std::optional<std::uint32_t> Narrow(std::uint64_t count) {
  return count > UINT32_MAX ? std::nullopt : std::optional(static_cast<std::uint32_t>(count));
}

void AddCounts(TCollection& collection, const std::string& name, const TCIMReference& port,
               const TPortCounts& counts) {
  const bool isEthernet = port.GetClass()->GetName({}) == "CIM_EthernetPort";
  TInstanceDraft draft =
      collection.Draft(isEthernet ? "CIM_EthernetPortStatistics" : "CIM_NetworkPortStatistics");
  draft.Set("InstanceID", "statistics/" + name)
      .Set("ElementName", "Statistics of " + name)
      .Set("BytesReceived", counts.bytesReceived)
      .Set("BytesTransmitted", counts.bytesTransmitted)
      .Set("PacketsReceived", counts.packetsReceived)
      .Set("PacketsTransmitted", counts.packetsTransmitted);
  if (isEthernet) {
    draft.Set("InternalMACReceiveErrors", Narrow(counts.receiveErrors))
        .Set("InternalMACTransmitErrors", Narrow(counts.transmitErrors))
        .Set("AlignmentErrors", Narrow(counts.alignmentErrors))
        .Set("CarrierSenseErrors", Narrow(counts.carrierErrors));
  }
  const std::optional<TCIMReference> path = collection.Add(draft);
  if (!path) return;
  collection.Link(collection.Draft("CIM_ElementStatisticalData")
                      .Set("ManagedElement", port)
                      .Set("Stats", *path));
}

void AddRadio(TCollection& collection, const std::string& name, const TCIMReference& port,
              const TRadioSignal& signal) {
  TInstanceDraft draft = collection.DraftDevice("CIM_WiFiRadio", name + "/radio");
  draft.Set("ElementName", "Radio of " + name)
      .Set("Caption", "Quality of the link: " + signal.quality)
      .Set("SignalStrength", signal.level)
      .Set("SignalNoise", signal.noise);
  const auto radio = collection.AddPart(draft, "CIM_SystemDevice");
  if (radio) collection.Link(collection.DraftComponent("CIM_ConcreteComponent", port, *radio));
}

/// The ports that one is made of.
std::vector<std::string> ListBelow(const TMachineFolder& folder) {
  static const std::string kBelow = "lower_";
  std::vector<std::string> names;
  for (const std::string& entry : folder.GetNames()) {
    if (entry.compare(0, kBelow.size(), kBelow) == 0) names.push_back(entry.substr(kBelow.size()));
  }
  return names;
}

bool IsTunnel(const TLinkKind& link) { return link.other.find("Tunnel") != std::string::npos; }

/// A tunnel has the number of the port that it goes through, if it is bound to one. Ports of other
/// kinds have such a number, too, but it may be one of another network namespace.
void AddTunnels(const TMachineFolder& folders, const std::vector<std::string>& tunnels,
                TLayers& layers) {
  if (tunnels.empty()) return;
  std::map<std::string, std::string> byNumber;
  for (const std::string& name : folders.GetNames()) {
    if (folders.HasFolder(name)) byNumber[folders.Enter(name).ReadValue("ifindex")] = name;
  }
  for (const std::string& tunnel : tunnels) {
    const auto below = byNumber.find(folders.Enter(tunnel).ReadValue("iflink"));
    if (below == byNumber.end() || below->second == tunnel) continue;
    layers.emplace_back(tunnel, below->second);
  }
}

void LinkLayers(TCollection& collection, const TLayers& layers, const TNetworkPorts& ports) {
  for (const auto& [name, below] : layers) {
    const auto upper = ports.find(name);
    const auto lower = ports.find(below);
    if (upper == ports.end() || lower == ports.end()) continue;
    collection.Link(
        collection.DraftDependency("CIM_ConcreteDependency", lower->second, upper->second));
  }
}

}  // namespace

TNetworkPorts CollectNetworkPorts(TCollection& collection, const TProviders& providers) {
  const TMachineFiles& files = collection.GetFiles();
  const TMachineFolder folders = collection.Enter(kPortsFolder);
  const auto networks = ParseVirtualNetworks(files.ReadTable("/proc/net/vlan/config"));
  const auto counts = ParsePortCounts(files.ReadTable("/proc/net/dev"));
  const auto signals = ParseRadioSignals(files.ReadTable("/proc/net/wireless"));
  TNetworkPorts ports;
  TLayers layers;
  std::vector<std::string> tunnels;
  for (const std::string& name : folders.GetNames()) {
    // Settings of drivers stand here, too, as plain files.
    if (!folders.HasFolder(name)) continue;
    const auto network = networks.find(name);
    const TMachineFolder folder = folders.Enter(name);
    for (const std::string& below : ListBelow(folder)) layers.emplace_back(name, below);
    const TLinkKind link = FindLinkKind(folder);
    const auto port = AddPort(collection, name, folder, link,
                              network == networks.end() ? std::string() : network->second);
    if (!port) continue;
    ports.emplace(name, *port);
    if (IsTunnel(link)) tunnels.push_back(name);
    LinkToProviders(collection, providers, kPortsFolder + ('/' + name), *port);
    if (const auto count = counts.find(name); count != counts.end()) {
      AddCounts(collection, name, *port, count->second);
    }
    if (const auto signal = signals.find(name); signal != signals.end()) {
      AddRadio(collection, name, *port, signal->second);
    }
  }
  AddTunnels(folders, tunnels, layers);
  LinkLayers(collection, layers, ports);
  return ports;
}

}  // namespace NZELVYR20

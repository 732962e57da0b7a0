#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>

#include <array>
#include <memory>

#include "AddressText.h"
#include "CollectAreas.h"

namespace NZELVYR20 {
namespace {

/// The addresses that were added, by port and version.
using TEndpoints = std::multimap<std::pair<std::string, bool>, TCIMReference>;

std::uint8_t CountPrefix(const sockaddr* mask) {
  if (mask == nullptr) return 32;
  in_addr bits = {};
  bits.s_addr = reinterpret_cast<const sockaddr_in*>(mask)->sin_addr.s_addr;
  std::uint8_t count = 0;
  for (std::uint32_t rest = bits.s_addr; rest != 0; rest &= rest - 1) ++count;
  return count;
}

/// From the kernel itself, which knows of each address the port.
std::vector<TPortAddress> AskForAddresses4() {
  ifaddrs* list = nullptr;
  if (getifaddrs(&list) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(list, freeifaddrs);
  std::vector<TPortAddress> addresses;
  for (const ifaddrs* each = list; each != nullptr; each = each->ifa_next) {
    if (each->ifa_addr == nullptr || each->ifa_addr->sa_family != AF_INET) continue;
    std::array<char, INET_ADDRSTRLEN> text = {};
    inet_ntop(AF_INET, &reinterpret_cast<const sockaddr_in*>(each->ifa_addr)->sin_addr, text.data(),
              text.size());
    // A further address may have a name of its own, which begins with the port's.
    const std::string name = each->ifa_name;
    addresses.push_back(
        {name.substr(0, name.find(':')), text.data(), CountPrefix(each->ifa_netmask), false});
  }
  return addresses;
}

std::vector<TPortAddress> ListAddresses(const TMachineFiles& files) {
  std::vector<TPortAddress> addresses = files.IsLive()
                                            ? AskForAddresses4()
                                            : ParseAddresses4(files.ReadTable("/proc/net/fib_trie"),
                                                              files.ReadTable("/proc/net/route"));
  for (TPortAddress& address : ParseAddresses6(files.ReadTable("/proc/net/if_inet6"))) {
    addresses.push_back(std::move(address));
  }
  return addresses;
}

std::vector<TGateway> ListGateways(const TMachineFiles& files) {
  std::vector<TGateway> gateways = ParseGateways4(files.ReadTable("/proc/net/route"));
  for (TGateway& gateway : ParseGateways6(files.ReadTable("/proc/net/ipv6_route"))) {
    gateways.push_back(std::move(gateway));
  }
  return gateways;
}

std::optional<TCIMReference> AddHosted(TCollection& collection, const TInstanceDraft& draft) {
  std::optional<TCIMReference> path = collection.Add(draft);
  if (path && collection.GetSystem()) {
    collection.Link(
        collection.DraftDependency("CIM_HostedAccessPoint", *collection.GetSystem(), *path));
  }
  return path;
}

std::optional<TCIMReference> AddEndpoint(TCollection& collection, const TPortAddress& address) {
  constexpr unsigned kIPv4 = 4096;
  constexpr unsigned kIPv6 = 4097;
  TInstanceDraft draft =
      collection.DraftAccessPoint("CIM_IPProtocolEndpoint", address.port + '/' + address.address);
  draft.Set("ElementName", address.address + '/' + std::to_string(address.prefix))
      .SetCode("EnabledState", 2);
  if (address.isVersion6) {
    draft.SetCode("ProtocolIFType", kIPv6)
        .Set("IPv6Address", address.address)
        .SetCode("IPv6SubnetPrefixLength", address.prefix)
        .SetCode("IPv6AddressType", FindAddressType6(address.address));
  } else {
    draft.SetCode("ProtocolIFType", kIPv4)
        .Set("IPv4Address", address.address)
        .Set("PrefixLength", address.prefix)
        .Set("SubnetMask", GetSubnetMask(address.prefix));
  }
  return AddHosted(collection, draft);
}

void AddGateway(TCollection& collection, const TGateway& gateway, const TEndpoints& endpoints) {
  constexpr unsigned kDefaultGateway = 2;
  constexpr unsigned kIPv4Address = 3;
  constexpr unsigned kIPv6Address = 4;
  TInstanceDraft draft = collection.DraftAccessPoint("CIM_RemoteServiceAccessPoint",
                                                     gateway.port + '/' + gateway.address);
  draft.Set("ElementName", gateway.address)
      .SetCode("AccessContext", kDefaultGateway)
      .Set("AccessInfo", gateway.address)
      .SetCode("InfoFormat", gateway.isVersion6 ? kIPv6Address : kIPv4Address);
  const std::optional<TCIMReference> path = AddHosted(collection, draft);
  if (!path) return;
  const auto [first, last] = endpoints.equal_range({gateway.port, gateway.isVersion6});
  for (auto each = first; each != last; ++each) {
    collection.Link(
        collection.DraftDependency("CIM_RemoteAccessAvailableToElement", *path, each->second)
            .Set("IsDefault", true));
  }
}

}  // namespace

void CollectAddresses(TCollection& collection, const TNetworkPorts& ports) {
  TEndpoints endpoints;
  for (const TPortAddress& address : ListAddresses(collection.GetFiles())) {
    const std::optional<TCIMReference> path = AddEndpoint(collection, address);
    if (!path) continue;
    endpoints.emplace(std::pair(address.port, address.isVersion6), *path);
    const auto port = ports.find(address.port);
    if (port == ports.end()) continue;
    collection.Link(collection.DraftDependency("CIM_DeviceSAPImplementation", port->second, *path));
  }
  for (const TGateway& gateway : ListGateways(collection.GetFiles())) {
    AddGateway(collection, gateway, endpoints);
  }
}

}  // namespace NZELVYR20

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// An address of the Internet Protocol, of one of a machine's ports.
struct TPortAddress {
  std::string port;
  std::string address;      ///< as people write it
  std::uint8_t prefix = 0;  ///< in bits
  bool isVersion6 = false;
};

/// The lines of /proc/net/if_inet6.
std::vector<TPortAddress> ParseAddresses6(std::string_view text);

/// Of the two lists that the kernel keeps, /proc/net/fib_trie has the addresses and
/// /proc/net/route says which port leads to their neighbours. One without neighbours is left out.
std::vector<TPortAddress> ParseAddresses4(std::string_view trie, std::string_view routes);

/// "255.255.240.0" for 20.
std::string GetSubnetMask(std::uint8_t prefix);

/// The standard's IPv6AddressType: what the first bits of the address say.
std::uint16_t FindAddressType6(std::string_view address);

/// Where a port sends what is for none of its neighbours.
struct TGateway {
  std::string port;
  std::string address;
  bool isVersion6 = false;
};

/// The lines of /proc/net/route and of /proc/net/ipv6_route that lead anywhere.
std::vector<TGateway> ParseGateways4(std::string_view routes);
std::vector<TGateway> ParseGateways6(std::string_view routes);

}  // namespace NZELVYR20

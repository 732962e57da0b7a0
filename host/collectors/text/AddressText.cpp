#include "AddressText.h"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <set>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr std::uint8_t kAllBits = 32;
constexpr std::uint64_t kUsable = 1;     ///< of a route's flags
constexpr std::uint64_t kByGateway = 2;  ///< likewise
constexpr std::uint64_t kRejecting = 0x200;

using TWords = std::vector<std::string_view>;

/// 32 digits as the kernel writes an address of version 6; empty for anything else.
std::string ShowAddress6(std::string_view digits) {
  std::array<std::uint8_t, 16> bytes = {};
  if (digits.size() != 2 * bytes.size()) return {};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = ParseUnsigned(digits.substr(2 * i, 2), kHexadecimal);
    if (!byte) return {};
    bytes[i] = static_cast<std::uint8_t>(*byte);
  }
  std::array<char, INET6_ADDRSTRLEN> text = {};
  return inet_ntop(AF_INET6, bytes.data(), text.data(), text.size());
}

/// A row of /proc/net/route. Addresses are in the order of bytes in which they travel.
struct TRoute {
  std::string port;
  std::uint32_t destination = 0;
  std::uint32_t gateway = 0;
  std::uint32_t mask = 0;
  std::uint64_t flags = 0;
};

std::optional<TRoute> ParseRoute(std::string_view line) {
  const TWords words = SplitWords(line);
  if (words.size() < 8) return std::nullopt;
  const auto destination = ParseUnsigned(words[1], kHexadecimal);
  const auto gateway = ParseUnsigned(words[2], kHexadecimal);
  const auto flags = ParseUnsigned(words[3], kHexadecimal);
  const auto mask = ParseUnsigned(words[7], kHexadecimal);
  if (!destination || !gateway || !flags || !mask || (*flags & kUsable) == 0) return std::nullopt;
  return TRoute{std::string(words[0]), static_cast<std::uint32_t>(*destination),
                static_cast<std::uint32_t>(*gateway), static_cast<std::uint32_t>(*mask), *flags};
}

std::vector<TRoute> ParseRoutes(std::string_view text) {
  std::vector<TRoute> routes;
  for (const std::string_view line : SplitLines(text)) {
    if (const std::optional<TRoute> route = ParseRoute(line)) routes.push_back(*route);
  }
  return routes;
}

std::uint8_t CountBits(std::uint32_t mask) {
  std::uint8_t count = 0;
  for (; mask != 0; mask &= mask - 1) ++count;
  return count;
}

std::string ShowAddress4(std::uint32_t address) {
  std::array<char, INET_ADDRSTRLEN> text = {};
  return inet_ntop(AF_INET, &address, text.data(), text.size());
}

/// The machine's own addresses: those of which the next line says so.
std::set<std::string> ListLocalAddresses(std::string_view trie) {
  std::set<std::string> addresses;
  std::string_view last;
  for (const std::string_view line : SplitLines(trie)) {
    const TWords words = SplitWords(line);
    if (words.size() == 2 && words[0] == "|--") last = words[1];
    if (words == TWords{"/32", "host", "LOCAL"}) addresses.emplace(last);
  }
  return addresses;
}

/// The port through which an address is reached without a gateway, by the narrowest of the routes.
std::optional<TPortAddress> FindPort(const std::string& address,
                                     const std::vector<TRoute>& routes) {
  in_addr given = {};
  if (inet_pton(AF_INET, address.c_str(), &given) != 1) return std::nullopt;
  if (address.compare(0, 4, "127.") == 0) return TPortAddress{"lo", address, 8, false};
  const TRoute* narrowest = nullptr;
  for (const TRoute& route : routes) {
    const bool leadsThere =
        route.mask != 0 && route.gateway == 0 && (given.s_addr & route.mask) == route.destination;
    if (leadsThere && (!narrowest || CountBits(route.mask) > CountBits(narrowest->mask))) {
      narrowest = &route;
    }
  }
  if (!narrowest) return std::nullopt;
  return TPortAddress{narrowest->port, address, CountBits(narrowest->mask), false};
}

}  // namespace

std::vector<TPortAddress> ParseAddresses6(std::string_view text) {
  std::vector<TPortAddress> addresses;
  for (const std::string_view line : SplitLines(text)) {
    const TWords words = SplitWords(line);
    if (words.size() < 6) continue;
    const std::string address = ShowAddress6(words[0]);
    const auto prefix = ParseUnsigned(words[2], kHexadecimal);
    if (address.empty() || !prefix || *prefix > 128) continue;
    addresses.push_back({std::string(words[5]), address, static_cast<std::uint8_t>(*prefix), true});
  }
  return addresses;
}

std::vector<TPortAddress> ParseAddresses4(std::string_view trie, std::string_view routes) {
  const std::vector<TRoute> known = ParseRoutes(routes);
  std::vector<TPortAddress> addresses;
  for (const std::string& address : ListLocalAddresses(trie)) {
    if (const auto found = FindPort(address, known)) addresses.push_back(*found);
  }
  return addresses;
}

std::string GetSubnetMask(std::uint8_t prefix) {
  return ShowAddress4(prefix == 0 ? 0 : htonl(UINT32_MAX << (kAllBits - prefix)));
}

std::uint16_t FindAddressType6(std::string_view address) {
  constexpr std::uint16_t kGlobal = 6;
  if (address == "::1") return 3;
  if (address.substr(0, 2) == "ff") return 4;
  if (address.substr(0, 3) == "fe8" || address.substr(0, 3) == "fe9" ||
      address.substr(0, 3) == "fea" || address.substr(0, 3) == "feb") {
    return 5;
  }
  return kGlobal;
}

std::vector<TGateway> ParseGateways4(std::string_view routes) {
  std::vector<TGateway> gateways;
  for (const TRoute& route : ParseRoutes(routes)) {
    if (route.destination != 0 || route.mask != 0 || (route.flags & kByGateway) == 0) continue;
    gateways.push_back({route.port, ShowAddress4(route.gateway), false});
  }
  return gateways;
}

std::vector<TGateway> ParseGateways6(std::string_view routes) {
  std::vector<TGateway> gateways;
  for (const std::string_view line : SplitLines(routes)) {
    const TWords words = SplitWords(line);
    if (words.size() < 10 || words[1] != "00") continue;
    const std::uint64_t flags = ParseUnsigned(words[8], kHexadecimal).value_or(0);
    if ((flags & kByGateway) == 0 || (flags & kRejecting) != 0) continue;
    const std::string address = ShowAddress6(words[4]);
    if (!address.empty()) gateways.push_back({std::string(words[9]), address, true});
  }
  return gateways;
}

}  // namespace NZELVYR20

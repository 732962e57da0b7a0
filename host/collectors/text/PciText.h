#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace NZELVYR20 {

/// Where on the PCI buses a function of a device is.
struct TPciAddress {
  std::uint8_t bus = 0;
  std::uint8_t device = 0;
  std::uint8_t function = 0;
};

/// From a name in /sys/bus/pci/devices such as "0000:3b:00.1"; nothing for any other.
std::optional<TPciAddress> ParsePciAddress(std::string_view name);

/// The address of the last function on the way of a link such as
/// "../../devices/pci0000:00/0000:00:03.0/virtio2/net/eth0"; empty where there is none.
std::string FindPciFunction(std::string_view link);

/// The maker's number, and after it the device's.
using TPciNumbers = std::pair<std::uint16_t, std::uint16_t>;

/// What people call a device.
struct TPciNames {
  std::string vendor;
  std::string device;
};

/// The names of those devices, by the list of all that are known (pci.ids). Those that it lacks
/// are empty.
std::map<TPciNumbers, TPciNames> FindPciNames(std::string_view list,
                                              const std::set<TPciNumbers>& wanted);

/// A number of at most `bits` bits as these files write it, such as "0x1af4"; nothing for anything
/// else.
std::optional<std::uint64_t> ParsePciNumber(std::string_view text, unsigned bits);

}  // namespace NZELVYR20

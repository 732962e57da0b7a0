#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

/// The port of the last device on USB there, such as "1-2.3" on the way "usb1/1-2/1-2.3/1-2.3:1.0";
/// empty where there is none.
std::string FindUsbPort(std::string_view link);

/// A number of at most `bits` bits as these files write it, such as "0x1af4"; nothing for anything
/// else.
std::optional<std::uint64_t> ParsePciNumber(std::string_view text, unsigned bits);

}  // namespace NZELVYR20

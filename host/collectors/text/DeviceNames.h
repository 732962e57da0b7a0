#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace NZELVYR20 {

/// The maker's number, and after it the device's.
using TDeviceNumbers = std::pair<std::uint16_t, std::uint16_t>;

/// What people call a device; empty where nobody says.
struct TDeviceNames {
  std::string vendor;
  std::string device;
};

/// The names of those devices, by the list of all that are known: pci.ids or usb.ids.
std::map<TDeviceNumbers, TDeviceNames> FindDeviceNames(std::string_view list,
                                                       const std::set<TDeviceNumbers>& wanted);

}  // namespace NZELVYR20

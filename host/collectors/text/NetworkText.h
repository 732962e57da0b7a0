#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// What kind of link a network port has.
struct TLinkKind {
  std::uint16_t technology = 0;  ///< the standard's LinkTechnology
  std::string other;             ///< the kind in words where the technology is 1 (other)
};

/// By the number in /sys/class/net/X/type.
TLinkKind ParseLinkKind(std::string_view type);

/// What the port is made of, such as "bond" or "vlan", by the file "uevent"; empty for most.
std::string ParseDeviceType(std::string_view text);

/// Bits per second from the megabits of /sys/class/net/X/speed; nothing where the driver does not
/// know, which it says in several ways.
std::optional<std::uint64_t> ParsePortSpeed(std::string_view text);

std::optional<bool> ParseFullDuplex(std::string_view text);

/// The standard's form of a hardware address: hexadecimal digits in upper case, without colons.
/// Empty for an address that is none (only zeros) or that is malformed.
std::string ParseHardwareAddress(std::string_view text);

/// How a port does, in the standard's numbers.
struct TPortState {
  std::uint16_t operationalStatus = 0;
  std::uint16_t enabledState = 0;
};

/// From the files "operstate" and "flags".
TPortState ParsePortState(std::string_view operationalState, std::string_view flags);

/// What the kernel counts of a port.
struct TPortCounts {
  std::uint64_t bytesReceived = 0;
  std::uint64_t packetsReceived = 0;
  std::uint64_t receiveErrors = 0;
  std::uint64_t alignmentErrors = 0;
  std::uint64_t bytesTransmitted = 0;
  std::uint64_t packetsTransmitted = 0;
  std::uint64_t transmitErrors = 0;
  std::uint64_t carrierErrors = 0;
};

/// The lines of /proc/net/dev, by the names of the ports.
std::map<std::string, TPortCounts> ParsePortCounts(std::string_view text);

/// The numbers of virtual networks, by the ports that stand for them: the lines of
/// /proc/net/vlan/config.
std::map<std::string, std::string> ParseVirtualNetworks(std::string_view text);

/// What a wireless port receives.
struct TRadioSignal {
  std::string quality;                 ///< a number of the driver's own
  std::optional<std::uint32_t> level;  ///< in decibels below one milliwatt
  std::optional<std::uint32_t> noise;  ///< the same
};

/// The lines of /proc/net/wireless, by the names of the ports.
std::map<std::string, TRadioSignal> ParseRadioSignals(std::string_view text);

}  // namespace NZELVYR20

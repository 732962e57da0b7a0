#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "BlockDeviceText.h"
#include "TCIMReference.h"
#include "TCollection.h"

namespace NZELVYR20 {

/// What is none of a list's own, in all of the standard's lists here.
constexpr std::uint16_t kOther = 1;

/// The storage extents by their names in /sys/block, such as "sda1".
using TExtents = std::map<std::string, TCIMReference>;

/// What can be stored on.
struct TStorage {
  TExtents extents;
  std::map<std::string, TCIMReference> drives;  ///< by the names of their devices, as "0:0:0:0"
};

/// The processors, by the numbers of the logical ones that they have.
using TProcessorsByIndex = std::map<std::uint32_t, TCIMReference>;

/// A function on a PCI bus.
struct TPciFunction {
  TCIMReference path;
  std::string model;       ///< by the list of such names; empty for what it lacks
  bool isDisplay = false;  ///< whether it makes pictures
};

/// Those, by their addresses.
using TPciFunctions = std::map<std::string, TPciFunction>;

/// What other devices are provided by.
struct TProviders {
  TPciFunctions functions;
  std::map<std::string, TCIMReference> usbDevices;  ///< by their ports, such as "1-2.3"
};

/// The operating system, and the name that is one of its keys.
struct TOperatingSystem {
  TCIMReference path;
  std::string name;
};

/// The network ports, by their names.
using TNetworkPorts = std::map<std::string, TCIMReference>;

/// Links a device with the PCI function that provides it, and with the device on USB where it is
/// one of that, by the symbolic link in /sys that leads to the device; where it is none's there is
/// nothing to link.
void LinkToProviders(TCollection& collection, const TProviders& providers, const std::string& link,
                     const TCIMReference& device);

/// Sets the size of a disk, a part of one, or memory: in blocks, and in bytes for people.
void SetSize(TInstanceDraft& draft, const TExtentSize& size);

// One function for each area of the machine: it reads, parses and adds. The computer system comes
// first, because all else belongs to it.

void CollectComputerSystem(TCollection& collection);
/// Returns the box, where there is something to say of it.
std::optional<TCIMReference> CollectChassis(TCollection& collection);
std::optional<TOperatingSystem> CollectOperatingSystem(TCollection& collection);
void CollectProcesses(TCollection& collection, const TOperatingSystem& operatingSystem);
void CollectPackages(TCollection& collection);
void CollectServices(TCollection& collection);
void CollectFirmware(TCollection& collection, const std::optional<TCIMReference>& chassis);
TProcessorsByIndex CollectProcessors(TCollection& collection);
void CollectMemory(TCollection& collection, const std::optional<TCIMReference>& chassis,
                   const TProcessorsByIndex& processors);
TPciFunctions CollectPciDevices(TCollection& collection);
/// Returns those devices, with the functions.
TProviders CollectUsbDevices(TCollection& collection, const TPciFunctions& functions);
void CollectPower(TCollection& collection);
void CollectDisplays(TCollection& collection, const TPciFunctions& functions);
TNetworkPorts CollectNetworkPorts(TCollection& collection, const TProviders& providers);
void CollectAddresses(TCollection& collection, const TNetworkPorts& ports);
TStorage CollectBlockDevices(TCollection& collection, const TProviders& providers);
void CollectSensors(TCollection& collection, const TPciFunctions& functions,
                    const TStorage& storage);
void CollectFileSystems(TCollection& collection, const TExtents& extents);

}  // namespace NZELVYR20

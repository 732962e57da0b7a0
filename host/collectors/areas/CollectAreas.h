#pragma once

#include <map>
#include <string>

#include "BlockDeviceText.h"
#include "TCIMReference.h"
#include "TCollection.h"

namespace NZELVYR20 {

/// The storage extents by their names in /sys/block, such as "sda1".
using TExtents = std::map<std::string, TCIMReference>;

/// Sets the size of a disk, a part of one, or memory: in blocks, and in bytes for people.
void SetSize(TInstanceDraft& draft, const TExtentSize& size);

// One function for each area of the machine: it reads, parses and adds. The computer system comes
// first, because all else belongs to it.

void CollectComputerSystem(TCollection& collection);
void CollectChassis(TCollection& collection);
void CollectOperatingSystem(TCollection& collection);
void CollectProcessors(TCollection& collection);
void CollectNetworkPorts(TCollection& collection);
void CollectPciDevices(TCollection& collection);
/// Returns what file systems can reside on.
TExtents CollectBlockDevices(TCollection& collection);
void CollectFileSystems(TCollection& collection, const TExtents& extents);

}  // namespace NZELVYR20

#include "TMachineCollector.h"

#include <utility>

#include "CollectAreas.h"
#include "TCollection.h"

namespace NZELVYR20 {

TMachineCollector::TMachineCollector(std::string root) : root_(std::move(root)) {}

std::vector<TCollectorNote> TMachineCollector::Collect(
    const boost::shared_ptr<ICIMNamespace>& nameSpace) const {
  TCollection collection(root_, nameSpace);
  collection.BeginArea("computer system");
  CollectComputerSystem(collection);
  CollectChassis(collection);
  collection.BeginArea("operating system");
  CollectOperatingSystem(collection);
  collection.BeginArea("processors");
  CollectProcessors(collection);
  collection.BeginArea("network ports");
  CollectNetworkPorts(collection);
  collection.BeginArea("PCI devices");
  CollectPciDevices(collection);
  collection.BeginArea("block devices");
  const TExtents extents = CollectBlockDevices(collection);
  collection.BeginArea("file systems");
  CollectFileSystems(collection, extents);
  return collection.GetNotes();
}

}  // namespace NZELVYR20

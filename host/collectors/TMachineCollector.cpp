#include "TMachineCollector.h"

#include <utility>

#include "CollectAreas.h"
#include "TCollection.h"

namespace NZELVYR20 {

TMachineCollector::TMachineCollector(std::string root, TExtraAreas extras)
    : root_(std::move(root)), extras_(extras) {}

std::vector<TCollectorNote> TMachineCollector::Collect(
    const boost::shared_ptr<ICIMNamespace>& nameSpace) const {
  TCollection collection(root_, nameSpace);
  collection.BeginArea("computer system");
  CollectComputerSystem(collection);
  const std::optional<TCIMReference> chassis = CollectChassis(collection);
  CollectFirmware(collection, chassis);
  collection.BeginArea("operating system");
  const auto operatingSystem = CollectOperatingSystem(collection);
  if (operatingSystem && extras_.processes) {
    collection.BeginArea("processes");
    CollectProcesses(collection, *operatingSystem);
  }
  collection.BeginArea("services");
  CollectServices(collection);
  if (extras_.packages) {
    collection.BeginArea("packages");
    CollectPackages(collection);
  }
  collection.BeginArea("processors");
  const TProcessorsByIndex processors = CollectProcessors(collection);
  collection.BeginArea("memory");
  CollectMemory(collection, chassis, processors);
  collection.BeginArea("PCI devices");
  const TPciFunctions functions = CollectPciDevices(collection);
  collection.BeginArea("displays");
  CollectDisplays(collection, functions);
  collection.BeginArea("USB devices");
  const TProviders providers = CollectUsbDevices(collection, functions);
  collection.BeginArea("power");
  CollectPower(collection);
  collection.BeginArea("network ports");
  const TNetworkPorts ports = CollectNetworkPorts(collection, providers);
  collection.BeginArea("addresses");
  CollectAddresses(collection, ports);
  collection.BeginArea("block devices");
  const TStorage storage = CollectBlockDevices(collection, providers);
  collection.BeginArea("sensors");
  CollectSensors(collection, functions, storage);
  collection.BeginArea("file systems");
  CollectFileSystems(collection, storage.extents);
  return collection.GetNotes();
}

}  // namespace NZELVYR20

#include "CollectAreas.h"
#include "PciText.h"

namespace NZELVYR20 {
namespace {

const char* const kDevicesFolder = "/sys/bus/pci/devices";

std::optional<std::uint16_t> ReadWord(const TMachineFiles& files, const std::string& path) {
  constexpr unsigned kBits = 16;
  const std::optional<std::uint64_t> number = ParsePciNumber(files.ReadValue(path), kBits);
  return number ? std::make_optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

/// The leading byte of the class: what the device is, without how it is driven.
std::optional<std::uint8_t> ReadClassCode(const TMachineFiles& files, const std::string& path) {
  constexpr unsigned kBits = 24;
  constexpr unsigned kBitsAfter = 16;
  const std::optional<std::uint64_t> number = ParsePciNumber(files.ReadValue(path), kBits);
  return number ? std::make_optional(static_cast<std::uint8_t>(*number >> kBitsAfter))
                : std::nullopt;
}

std::optional<std::uint8_t> ReadRevision(const TMachineFiles& files, const std::string& path) {
  constexpr unsigned kBits = 8;
  const std::optional<std::uint64_t> number = ParsePciNumber(files.ReadValue(path), kBits);
  return number ? std::make_optional(static_cast<std::uint8_t>(*number)) : std::nullopt;
}

void AddDevice(TCollection& collection, const std::string& name, const TPciAddress& address) {
  const TMachineFiles& files = collection.GetFiles();
  const std::string folder = kDevicesFolder + ("/" + name) + '/';
  TInstanceDraft draft = collection.DraftDevice("CIM_PCIDevice", name);
  draft.Set("ElementName", name)
      .Set("BusNumber", address.bus)
      .Set("DeviceNumber", address.device)
      .Set("FunctionNumber", address.function)
      .Set("VendorID", ReadWord(files, folder + "vendor"))
      .Set("PCIDeviceID", ReadWord(files, folder + "device"))
      .Set("SubsystemVendorID", ReadWord(files, folder + "subsystem_vendor"))
      .Set("SubsystemID", ReadWord(files, folder + "subsystem_device"))
      .Set("RevisionID", ReadRevision(files, folder + "revision"))
      .Set("ClassCode", ReadClassCode(files, folder + "class"));
  collection.AddPart(std::move(draft), "CIM_SystemDevice");
}

}  // namespace

void CollectPciDevices(TCollection& collection) {
  // Many machines have no PCI at all: that the folder is missing is not worth a note.
  for (const std::string& name : collection.GetFiles().List(kDevicesFolder)) {
    if (const std::optional<TPciAddress> address = ParsePciAddress(name)) {
      AddDevice(collection, name, *address);
    }
  }
}

}  // namespace NZELVYR20

#include "CollectAreas.h"
#include "PciText.h"

namespace NZELVYR20 {
namespace {

const char* const kDevicesFolder = "/sys/bus/pci/devices";

std::optional<std::uint16_t> ReadWord(const TMachineFolder& folder, std::string_view name) {
  constexpr unsigned kBits = 16;
  const std::optional<std::uint64_t> number = ParsePciNumber(folder.ReadValue(name), kBits);
  return number ? std::make_optional(static_cast<std::uint16_t>(*number)) : std::nullopt;
}

/// The leading byte of the class: what the device is, without how it is driven.
std::optional<std::uint8_t> ReadClassCode(const TMachineFolder& folder, std::string_view name) {
  constexpr unsigned kBits = 24;
  constexpr unsigned kBitsAfter = 16;
  const std::optional<std::uint64_t> number = ParsePciNumber(folder.ReadValue(name), kBits);
  return number ? std::make_optional(static_cast<std::uint8_t>(*number >> kBitsAfter))
                : std::nullopt;
}

std::optional<std::uint8_t> ReadRevision(const TMachineFolder& folder, std::string_view name) {
  constexpr unsigned kBits = 8;
  const std::optional<std::uint64_t> number = ParsePciNumber(folder.ReadValue(name), kBits);
  return number ? std::make_optional(static_cast<std::uint8_t>(*number)) : std::nullopt;
}

void AddDevice(TCollection& collection, const std::string& name, const TPciAddress& address,
               const TMachineFolder& folder) {
  TInstanceDraft draft = collection.DraftDevice("CIM_PCIDevice", name);
  draft.Set("ElementName", name)
      .Set("BusNumber", address.bus)
      .Set("DeviceNumber", address.device)
      .Set("FunctionNumber", address.function)
      .Set("VendorID", ReadWord(folder, "vendor"))
      .Set("PCIDeviceID", ReadWord(folder, "device"))
      .Set("SubsystemVendorID", ReadWord(folder, "subsystem_vendor"))
      .Set("SubsystemID", ReadWord(folder, "subsystem_device"))
      .Set("RevisionID", ReadRevision(folder, "revision"))
      .Set("ClassCode", ReadClassCode(folder, "class"));
  collection.AddPart(draft, "CIM_SystemDevice");
}

}  // namespace

void CollectPciDevices(TCollection& collection) {
  // Many machines have no PCI at all: that the folder is missing is not worth a note.
  const TMachineFolder devices(collection.GetFiles(), kDevicesFolder);
  for (const std::string& name : devices.GetNames()) {
    if (const std::optional<TPciAddress> address = ParsePciAddress(name)) {
      AddDevice(collection, name, *address, devices.Enter(name));
    }
  }
}

}  // namespace NZELVYR20

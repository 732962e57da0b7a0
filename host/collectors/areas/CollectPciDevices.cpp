#include "CollectAreas.h"
#include "DeviceNames.h"
#include "PciText.h"
#include "ReadDeviceNames.h"
#include "TIdentities.h"

namespace NZELVYR20 {
namespace {

const char* const kPciFolder = "/sys/bus/pci/devices";

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

/// A function, and what its files say.
struct TFunction {
  TPciAddress address;
  TMachineFolder folder;
  TDeviceNumbers numbers;
  std::optional<std::uint8_t> classCode;
};

using TFunctions = std::map<std::string, TFunction>;

TFunctions ListFunctions(const TMachineFiles& files) {
  // Many machines have no PCI at all: that the folder is missing is not worth a note.
  const TMachineFolder devices(files, kPciFolder);
  TFunctions functions;
  for (const std::string& name : devices.GetNames()) {
    const std::optional<TPciAddress> address = ParsePciAddress(name);
    if (!address) continue;
    TMachineFolder folder = devices.Enter(name);
    const TDeviceNumbers numbers(ReadWord(folder, "vendor").value_or(0),
                                 ReadWord(folder, "device").value_or(0));
    const auto classCode = ReadClassCode(folder, "class");
    functions.emplace(name, TFunction{*address, std::move(folder), numbers, classCode});
  }
  return functions;
}

std::map<TDeviceNumbers, TDeviceNames> ReadNames(const TMachineFiles& files,
                                                 const TFunctions& functions) {
  std::set<TDeviceNumbers> wanted;
  for (const auto& [name, function] : functions) wanted.insert(function.numbers);
  return ReadDeviceNames(files, "pci.ids", wanted);
}

TInstanceDraft DraftFunction(const TCollection& collection, const std::string& name,
                             const TFunction& function, const TDeviceNames& names) {
  const auto& [address, folder, numbers, classCode] = function;
  TInstanceDraft draft = collection.DraftDevice("CIM_PCIDevice", name);
  draft.Set("ElementName", names.device.empty() ? name : names.device)
      .SetText("Description", names.vendor)
      .Set("BusNumber", address.bus)
      .Set("DeviceNumber", address.device)
      .Set("FunctionNumber", address.function)
      .Set("VendorID", ReadWord(folder, "vendor"))
      .Set("PCIDeviceID", ReadWord(folder, "device"))
      .Set("SubsystemVendorID", ReadWord(folder, "subsystem_vendor"))
      .Set("SubsystemID", ReadWord(folder, "subsystem_device"))
      .Set("RevisionID", ReadRevision(folder, "revision"))
      .Set("ClassCode", classCode);
  TIdentities()
      .Add("Driver", collection.GetFiles().ReadLinkName(kPciFolder + ('/' + name) + "/driver"))
      .SetIn(draft);
  return draft;
}

}  // namespace

TPciFunctions CollectPciDevices(TCollection& collection) {
  constexpr std::uint8_t kDisplay = 3;
  const TFunctions functions = ListFunctions(collection.GetFiles());
  const auto names = ReadNames(collection.GetFiles(), functions);
  TPciFunctions added;
  for (const auto& [name, function] : functions) {
    const auto found = names.find(function.numbers);
    const TDeviceNames known = found == names.end() ? TDeviceNames() : found->second;
    const auto path =
        collection.AddPart(DraftFunction(collection, name, function, known), "CIM_SystemDevice");
    if (!path) continue;
    added.emplace(name, TPciFunction{*path, known.device, function.classCode == kDisplay});
  }
  return added;
}

void LinkToProviders(TCollection& collection, const TProviders& providers, const std::string& link,
                     const TCIMReference& device) {
  const std::string way = collection.GetFiles().ReadLink(link);
  const auto function = providers.functions.find(FindPciFunction(way));
  if (function != providers.functions.end()) {
    collection.Link(collection.DraftDependency("CIM_ControlledBy", function->second.path, device));
  }
  const auto usb = providers.usbDevices.find(FindUsbPort(way));
  if (usb != providers.usbDevices.end()) {
    collection.Link(collection.DraftDependency("CIM_ConcreteDependency", usb->second, device));
  }
}

}  // namespace NZELVYR20

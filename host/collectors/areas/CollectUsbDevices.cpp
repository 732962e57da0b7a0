#include <utility>

#include "CollectAreas.h"
#include "ReadDeviceNames.h"
#include "TextFields.h"

namespace NZELVYR20 {
namespace {

constexpr auto kUsbFolder = "/sys/bus/usb/devices";
/// A device, and what its files say.
struct TUsbDevice {
  TMachineFolder folder;
  TDeviceNumbers numbers;
};

template <class TNumber>
std::optional<TNumber> ReadNumber(const TMachineFolder& folder, const char* name) {
  const auto number = ParseUnsigned(folder.ReadValue(name), kHexadecimal);
  if (!number || *number > std::numeric_limits<TNumber>::max()) return std::nullopt;
  return static_cast<TNumber>(*number);
}

/// The parts of devices stand here, too: they have no numbers of their own.
std::map<std::string, TUsbDevice> ListDevices(const TMachineFiles& files) {
  const TMachineFolder devices(files, kUsbFolder);
  std::map<std::string, TUsbDevice> found;
  for (const std::string& name : devices.GetNames()) {
    TMachineFolder folder = devices.Enter(name);
    const auto vendor = ReadNumber<std::uint16_t>(folder, "idVendor");
    const auto device = ReadNumber<std::uint16_t>(folder, "idProduct");
    if (!vendor || !device) continue;
    found.emplace(name, TUsbDevice{std::move(folder), {*vendor, *device}});
  }
  return found;
}

/// What the device calls itself, or else what the list does.
std::string Prefer(const std::string& own, const std::string& listed) {
  return own.empty() ? listed : own;
}

TInstanceDraft DraftUsbDevice(const TCollection& collection, const std::string& name,
                              const TUsbDevice& device, const TDeviceNames& names) {
  const TMachineFolder& folder = device.folder;
  const std::string product = Prefer(folder.ReadValue("product"), names.device);
  TInstanceDraft draft = collection.DraftDevice("CIM_USBDevice", name);
  draft.Set("ElementName", product.empty() ? name : product)
      .SetText("Product", product)
      .SetText("Manufacturer", Prefer(folder.ReadValue("manufacturer"), names.vendor))
      .SetText("SerialNumber", folder.ReadValue("serial"))
      .Set("VendorID", device.numbers.first)
      .Set("ProductID", device.numbers.second)
      .Set("ClassCode", ReadNumber<std::uint8_t>(folder, "bDeviceClass"))
      .Set("SubclassCode", ReadNumber<std::uint8_t>(folder, "bDeviceSubClass"))
      .Set("ProtocolCode", ReadNumber<std::uint8_t>(folder, "bDeviceProtocol"));
  return draft;
}

}  // namespace

TProviders CollectUsbDevices(TCollection& collection, const TPciFunctions& functions) {
  const std::map<std::string, TUsbDevice> devices = ListDevices(collection.GetFiles());
  std::set<TDeviceNumbers> wanted;
  for (const auto& [name, device] : devices) wanted.insert(device.numbers);
  TProviders providers{functions, {}};
  std::map<std::string, TCIMReference> added;
  auto names = ReadDeviceNames(collection.GetFiles(), "usb.ids", wanted);
  for (const auto& [name, device] : devices) {
    const auto path = collection.AddPart(
        DraftUsbDevice(collection, name, device, names[device.numbers]), "CIM_SystemDevice");
    if (!path) continue;
    added.emplace(name, *path);
    LinkToProviders(collection, providers, kUsbFolder + ('/' + name), *path);
  }
  providers.usbDevices = std::move(added);
  return providers;
}

}  // namespace NZELVYR20

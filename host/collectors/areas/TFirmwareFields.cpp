#include "TFirmwareFields.h"

#include "SystemText.h"
#include "TextFields.h"

namespace NZELVYR20 {

std::string TFirmwareFields::Read(const std::string& name) const {
  if (!folder_.Has(name)) return {};
  return CleanFirmwareText(std::string(Trim(collection_.Read(kFolder + ("/" + name)))));
}

std::string TFirmwareFields::ReadQuietly(const std::string& name) const {
  return CleanFirmwareText(folder_.ReadValue(name));
}

}  // namespace NZELVYR20

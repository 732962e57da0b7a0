#include "ReadDeviceNames.h"

namespace NZELVYR20 {

std::map<TDeviceNumbers, TDeviceNames> ReadDeviceNames(const TMachineFiles& files,
                                                       const std::string& list,
                                                       const std::set<TDeviceNumbers>& wanted) {
  if (wanted.empty()) return {};
  std::string text = files.ReadTable("/usr/share/misc/" + list);
  if (text.empty()) text = files.ReadTable("/usr/share/hwdata/" + list);
  return FindDeviceNames(text, wanted);
}

}  // namespace NZELVYR20

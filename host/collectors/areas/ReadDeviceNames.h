#pragma once

#include <map>
#include <set>
#include <string>

#include "DeviceNames.h"
#include "TMachineFiles.h"

namespace NZELVYR20 {

/// The names of those devices, by the machine's own list of that name, where one is installed.
std::map<TDeviceNumbers, TDeviceNames> ReadDeviceNames(const TMachineFiles& files,
                                                       const std::string& list,
                                                       const std::set<TDeviceNumbers>& wanted);

}  // namespace NZELVYR20

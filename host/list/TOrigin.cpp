#include "TOrigin.h"

#include <ctime>
#include <string>

#include "ListElements.h"
#include "ReadValue.h"
#include "TScopedSilence.h"
#include "TVYRException.h"

namespace NZELVYR20 {

std::string TOrigin::Now() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  char text[sizeof "2026-11-22T14:40:00Z"] = {};
  return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts)};
}

std::string TOrigin::FindMachine(ICIMNamespace& nameSpace) {
  const TScopedSilence silence;
  try {
    const TInstanceList systems =
        ListInstances(*nameSpace.GetClass("CIM_ComputerSystem", {}), true);
    return systems.empty() ? "" : ReadAs<std::string>(*systems.front(), "Name").value_or("");
  } catch (const TVYRException&) {
    return "";
  }
}

}  // namespace NZELVYR20

#include "TOrigin.h"

#include <string>

#include "ListElements.h"
#include "ReadValue.h"
#include "TScopedSilence.h"
#include "TVYRException.h"

namespace NZELVYR20 {

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

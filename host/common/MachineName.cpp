#include "MachineName.h"

#include "ListElements.h"
#include "ReadValue.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

TInstanceList ListComputers(ICIMNamespace& nameSpace) {
  try {
    return ListInstances(*nameSpace.GetClass("CIM_ComputerSystem", {}), true);
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    return {};
  }
}

}  // namespace

std::string FindMachineName(ICIMNamespace& nameSpace) {
  const TInstanceList computers = ListComputers(nameSpace);
  if (computers.size() != 1) return {};
  return ReadAs<std::string>(*computers.front(), "Name").value_or(std::string());
}

}  // namespace NZELVYR20

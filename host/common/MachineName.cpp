#include "MachineName.h"

#include "FindOrNothing.h"
#include "ListElements.h"
#include "ReadValue.h"

namespace NZELVYR20 {
namespace {

TInstanceList ListComputers(ICIMNamespace& nameSpace) {
  return FindOrNothing(
      [&] { return ListInstances(*nameSpace.GetClass("CIM_ComputerSystem", {}), true); });
}

}  // namespace

std::string FindMachineName(ICIMNamespace& nameSpace) {
  const TInstanceList computers = ListComputers(nameSpace);
  if (computers.size() != 1) return {};
  return ReadAs<std::string>(*computers.front(), "Name").value_or(std::string());
}

}  // namespace NZELVYR20

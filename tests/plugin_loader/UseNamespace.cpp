#include "UseNamespace.h"

#include <sstream>
#include <stdexcept>

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TVYRException.h"

namespace NZELVYR20 {

std::string UseNamespace(const TSpace& space) {
  std::ostringstream seen;
  const auto port = AddClass(space, "Port", "");
  const auto link = AddClass(space, "Link", TCIMValue::NullReference(port));
  const auto instance = AddInstance(port, "a");
  AddInstance(link, instance->GetReference({}));
  const auto note = [&](const TInstance& found) {
    seen << found->BuildPath({}).GetPath() << '\n';
    return true;
  };
  instance->EnumerateAssociationInstances(note, "Link", "Id", {});
  const auto element = TCIMReference::Parse("port.ID=\"a\"", space).GetCIMElement(false);
  const bool isFound = boost::dynamic_pointer_cast<ICIMInstance>(element) == instance;
  seen << (isFound ? "an instance\n" : "another\n");
  seen << (boost::dynamic_pointer_cast<ICIMClass>(element) ? "a class\n" : "no class\n");
  seen << instance->GetProperty("HealthState", {})->ToString() << '\n';
  try {
    space->GetClass("Nothing", {});
  } catch (const TVYRException& failure) {
    seen << failure.what() << '\n';
  }
  const auto fail = [](const boost::shared_ptr<ICIMProperty>&) -> bool {
    throw std::out_of_range("mine");
  };
  try {
    instance->EnumerateProperties(fail, {});
  } catch (const std::out_of_range& failure) {
    seen << failure.what() << '\n';
  }
  return seen.str();
}

}  // namespace NZELVYR20

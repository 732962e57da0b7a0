#include <cstdio>
#include <mutex>
#include <stdexcept>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "INamespaceProvider.h"
#include "INamespaceProviderManager.h"
#include "SmallSchema.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

using TSpace = boost::shared_ptr<ICIMNamespace>;
using TInstance = boost::shared_ptr<ICIMInstance>;

/// Namespaces kept until this library goes: where it came before the plug-in, they outlive the
/// plug-in's own statics.
std::vector<TSpace> kept;
std::mutex keptMutex;

void Expect(bool condition, const char* what) {
  if (!condition) throw std::logic_error(what);
}

void CheckInstances(const TSpace& space, const boost::shared_ptr<ICIMClass>& port) {
  constexpr int kCount = 100;
  for (int i = 0; i < kCount; ++i) AddInstance(port, std::to_string(i));
  int seen = 0;
  const auto check = [&](const TInstance& found) {
    const auto path = TCIMReference::Parse(found->BuildPath({}).GetPath(), space);
    const auto element = path.GetCIMElement(false);
    Expect(boost::dynamic_pointer_cast<ICIMInstance>(element) == found, "cast to the instance");
    Expect(!boost::dynamic_pointer_cast<ICIMClass>(element), "cast to what it is not");
    ++seen;
    return true;
  };
  port->EnumerateInstances(check, true, {});
  Expect(seen == kCount, "every instance is found through its path");
}

/// Failures of the plug-in by their type, and this library's own through the plug-in's frames.
void CheckExceptions(const TSpace& space, const boost::shared_ptr<ICIMClass>& port) {
  int caught = 0;
  try {
    space->GetClass("Nothing", {});
  } catch (const TVYRException& failure) {
    caught = failure.GetStatusCode();
  }
  Expect(caught == TVYRStatusCode::kNotFound, "TVYRException caught by its type");

  const auto instance = port->AllocateInstance({});
  const auto fail = [](const boost::shared_ptr<ICIMProperty>&) -> bool {
    throw std::out_of_range("mine");
  };
  try {
    instance->EnumerateProperties(fail, {});
  } catch (const std::out_of_range& failure) {
    caught = failure.what() == std::string("mine") ? 0 : -1;
  }
  Expect(caught == 0, "the callback's own exception caught by its type");
}

void Use() {
  const auto manager = TRootObject::GetNamespaceProviderManager();
  const auto space = manager->FindNamespaceProvider("inmem")->AllocateNamespace({}, false);
  const auto port = AddClass(space, "Port", "");
  CheckInstances(space, port);
  CheckExceptions(space, port);
  const std::lock_guard<std::mutex> lock(keptMutex);
  kept.push_back(space);
}

}  // namespace
}  // namespace NZELVYR20

/// Makes, uses and keeps a namespace. False, with the reason on standard error, where something is
/// not as it should be.
extern "C" VYR_EXPORT bool UseRepository() {
  try {
    NZELVYR20::Use();
    return true;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return false;
  }
}

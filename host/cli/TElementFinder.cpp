#include "TElementFinder.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "TCommandError.h"
#include "TScopedSilence.h"
#include "TVYRException.h"

namespace NZELVYR20 {
namespace {

TCommandError ClassError(const std::string& name, const TVYRException& error) {
  if (error.GetStatusCode() == TVYRStatusCode::kNotFound) {
    return TCommandError("no class " + name);
  }
  return TCommandError("class " + name + ": " + error.what());
}

/// The part of an object path before its keys.
std::string ClassPart(const std::string& path) { return path.substr(0, path.find('.')); }

TCommandError InstanceError(const TCIMReference& path) {
  const bool hasKeys = path.GetPath() != path.GetClassName();
  return TCommandError("no instance " + path.ToString() +
                       (hasKeys ? "" : ": a path to an instance needs its keys"));
}

}  // namespace

TElementFinder::TElementFinder(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

boost::shared_ptr<ICIMClass> TElementFinder::FindClass(const std::string& name) const {
  if (name.empty()) {
    throw TCommandError("an empty text names no class");
  }
  const TScopedSilence silence;
  try {
    return namespace_->GetClass(name, {});
  } catch (const TVYRException& error) {
    throw ClassError(name, error);
  }
}

TCIMReference TElementFinder::ParsePath(const std::string& path) const {
  const TScopedSilence silence;
  try {
    return TCIMReference::Parse(path, namespace_);
  } catch (const std::invalid_argument& error) {
    throw TCommandError("object path " + path + ": " + error.what());
  } catch (const TVYRException& error) {
    throw ClassError(ClassPart(path), error);
  }
}

boost::shared_ptr<ICIMInstance> TElementFinder::FindInstance(const std::string& path) const {
  const TCIMReference reference = ParsePath(path);
  auto instance = namespace_->GetInstance(reference, {});
  if (!instance) {
    throw InstanceError(reference);
  }
  return instance;
}

void TElementFinder::CheckPropertyName(const std::string& name) const {
  const TScopedSilence silence;
  try {
    namespace_->GetClass("", {})->GetPropertyDecl(name, {});
  } catch (const TVYRException& error) {
    if (error.GetStatusCode() != TVYRStatusCode::kNotFound) {
      throw TCommandError("property " + name + ": " + error.what());
    }
  }
}

}  // namespace NZELVYR20

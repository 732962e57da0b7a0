#include "ReadValue.h"

#include <ICIMClass.h>
#include <ICIMProperty.h>
#include <ICIMPropertyDecl.h>

#include <boost/shared_ptr.hpp>

namespace NZELVYR20 {
namespace {

/// The class is asked first: an instance answers for some properties that nobody declared.
boost::shared_ptr<ICIMProperty> FindProperty(ICIMInstance& instance, const std::string& name) {
  try {
    instance.GetClass({})->GetPropertyDecl(name, {});
    return instance.GetProperty(name, {});
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    return {};
  }
}

}  // namespace

TCIMValue ReadValue(ICIMInstance& instance, const std::string& name) {
  const auto property = FindProperty(instance, name);
  return property ? property->GetValue({}) : TCIMValue();
}

std::string ReadText(ICIMInstance& instance, const std::string& name) {
  const auto property = FindProperty(instance, name);
  return property && !property->GetValue({}).IsNull() ? property->ToString() : std::string();
}

}  // namespace NZELVYR20

#include "ReadValue.h"

#include <ICIMClass.h>
#include <ICIMPropertyDecl.h>

#include "FindOrNothing.h"

namespace NZELVYR20 {

/// The class is asked first: an instance answers for some properties that nobody declared.
boost::shared_ptr<ICIMProperty> FindProperty(ICIMInstance& instance, const std::string& name) {
  return FindOrNothing([&] {
    instance.GetClass({})->GetPropertyDecl(name, {});
    return instance.GetProperty(name, {});
  });
}

TCIMValue ReadValue(ICIMInstance& instance, const std::string& name) {
  const auto property = FindProperty(instance, name);
  return property ? property->GetValue({}) : TCIMValue();
}

std::string ReadText(ICIMInstance& instance, const std::string& name) {
  const auto property = FindProperty(instance, name);
  return property && !property->GetValue({}).IsNull() ? property->ToString() : std::string();
}

}  // namespace NZELVYR20

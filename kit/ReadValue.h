#pragma once

#include <ICIMInstance.h>
#include <ICIMProperty.h>
#include <TCIMValue.h>
#include <TVYRException.h>

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>

namespace NZELVYR20 {

/// The property of that name; empty where the instance has no such property. Unlike
/// ICIMInstance::GetProperty it declares nothing.
boost::shared_ptr<ICIMProperty> FindProperty(ICIMInstance& instance, const std::string& name);

/// Its value; null where there is no such property.
TCIMValue ReadValue(ICIMInstance& instance, const std::string& name);

/// The same as a C++ type, or nothing where there is no value of that very type:
/// `ReadAs<std::uint16_t>(*port, "PortType")`.
template <class TContent>
std::optional<TContent> ReadAs(ICIMInstance& instance, const std::string& name) {
  try {
    return static_cast<TContent>(ReadValue(instance, name));
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != TVYRStatusCode::kTypeMismatch) throw;
    return std::nullopt;
  }
}

/// As people read it, with units and value maps; empty where there is no value.
std::string ReadText(ICIMInstance& instance, const std::string& name);

}  // namespace NZELVYR20

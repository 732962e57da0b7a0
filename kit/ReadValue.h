#pragma once

#include <ICIMInstance.h>
#include <TCIMValue.h>
#include <TVYRException.h>

#include <optional>
#include <string>

namespace NZELVYR20 {

/// The value of a property; null where the instance has no such property. Unlike
/// ICIMInstance::GetProperty it declares nothing.
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

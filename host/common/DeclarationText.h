#pragma once

#include <string>

namespace NZELVYR20 {

/// A property with its class and its type, such as "CIM_NetworkPort.PortType (uint16)".
inline std::string DeclarationText(const std::string& className, const std::string& name,
                                   const std::string& type) {
  return className + '.' + name + " (" + type + ')';
}

}  // namespace NZELVYR20

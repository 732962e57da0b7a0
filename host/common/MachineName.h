#pragma once

#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// The name of the machine that the instances describe: of the one computer among them. Empty where
/// there is none, or more than one.
std::string FindMachineName(ICIMNamespace& nameSpace);

}  // namespace NZELVYR20

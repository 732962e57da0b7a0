#pragma once

#include <map>
#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The call context, passed by value as the last argument of nearly every operation: named values
/// by which a host tells an implementation more than the arguments say. The same type carries the
/// named values of a method call and of an instance modification.
///
/// The in-memory repository never reads a context, and hands a fresh empty one to what it calls.
using TCIMContext = std::map<std::string, TCIMValue>;

}  // namespace NZELVYR20

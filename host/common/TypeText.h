#pragma once

#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The word of MOF for the type, with "[]" after it for arrays.
std::string TypeText(TCIMValue::TCIMType type);

}  // namespace NZELVYR20

#pragma once

#include <sstream>
#include <string>

#include "TCIMValue.h"

namespace NZELVYR20 {

/// The word of MOF for the type, with "[]" after it for arrays.
inline std::string TypeText(TCIMValue::TCIMType type) {
  std::ostringstream text;
  text << type;
  return text.str();
}

}  // namespace NZELVYR20

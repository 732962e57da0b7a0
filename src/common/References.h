#pragma once

#include "TCIMValue.h"

namespace NZELVYR20 {

/// Lets go of the classes that a value of references holds.
inline void ReleaseReferences(TCIMValue& value) {
  if (value.GetType().GetElementType() == TCIMValue::TCIMType::kReference) {
    value = TCIMValue();  // a host need not offer a null that keeps the type
  }
}

}  // namespace NZELVYR20

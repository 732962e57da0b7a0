#pragma once

#include "TCIMValue.h"

namespace NZELVYR20 {

/// Lets go of the classes that a value of references holds.
inline void ReleaseReferences(TCIMValue& value) {
  const TCIMValue::TCIMType type = value.GetType();
  if (type != TCIMValue::TCIMType::kReference && type != TCIMValue::TCIMType::kReferenceArray) {
    return;
  }
  const TCIMValue null;  // a host need not offer one that keeps the type, nor to move it in
  value = null;
}

}  // namespace NZELVYR20

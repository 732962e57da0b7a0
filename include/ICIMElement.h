#pragma once

#include "TCIMContext.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// What classes and instances have in common: an object path can lead to either.
class VYR_EXPORT ICIMElement {
 public:
  virtual ~ICIMElement();

  /// Checks the element against the rules of its kind and changes nothing. Returns when it keeps
  /// them; throws the status of the first rule that it breaks (see ICIMClass and ICIMInstance).
  virtual void Validate(TCIMContext context) const = 0;
};

}  // namespace NZELVYR20

#pragma once

#include "TCIMDateTime.h"
#include "VYRExport.h"

namespace NZELVYR20 {

/// What the host takes from its operating system.
class VYR_EXPORT TOSSpecific {
 public:
  TOSSpecific() = delete;

  /// Now, as a time stamp with the offset of the local time zone.
  static TCIMDateTime GetLocalTime();
};

}  // namespace NZELVYR20

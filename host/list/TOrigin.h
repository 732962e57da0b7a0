#pragma once

#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// Where and when instances were collected.
struct TOrigin {
  std::string machine;  ///< the computer system's name; empty where there is none
  std::string time;     ///< in UTC, as UtcTimeText writes it

  /// The name of the first computer system in the namespace.
  static std::string FindMachine(ICIMNamespace& nameSpace);
};

}  // namespace NZELVYR20

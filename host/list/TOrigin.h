#pragma once

#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// Where and when instances were collected.
struct TOrigin {
  std::string machine;  ///< the computer system's name; empty where there is none
  std::string time;     ///< in UTC, such as "2026-11-22T14:40:00Z"

  /// The present time, in that form.
  static std::string Now();
  /// The name of the first computer system in the namespace.
  static std::string FindMachine(ICIMNamespace& nameSpace);
};

}  // namespace NZELVYR20

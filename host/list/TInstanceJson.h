#pragma once

#include <string>

#include "ICIMInstance.h"

namespace NZELVYR20 {

/// One instance as JSON, for programs: every property with its type, its value as it is stored and
/// the text that people read.
class TInstanceJson {
 public:
  TInstanceJson() = delete;

  /// An object with "class", "path" and "properties", indented. Integers of 64 bits stay exact;
  /// date-times stand in the CIM text form, references as paths; the instance's own path is the one
  /// that lists print. Text that is no UTF-8 has its bad bytes replaced.
  static std::string Write(ICIMInstance& instance);
};

}  // namespace NZELVYR20

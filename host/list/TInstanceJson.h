#pragma once

#include <string>

#include "ICIMInstance.h"

namespace NZELVYR20 {

/// One instance as JSON, for programs: every property with its type, its value as it is stored and
/// the text that people read.
class TInstanceJson {
 public:
  TInstanceJson() = delete;

  /// An object with "class", "path" and "properties", indented; the path is the one that lists
  /// print, and JsonText.h says how values are written.
  static std::string Write(ICIMInstance& instance);
};

}  // namespace NZELVYR20

#pragma once

#include "TScopedLogger.h"

namespace NZELVYR20 {

/// Keeps log messages from the user while it lives: a look-up on the user's behalf logs what the
/// program is about to report itself.
class TScopedSilence : public TScopedLogger {
 public:
  TScopedSilence() : TScopedLogger([](ICoreLogger&, int, const std::string&) {}) {}
};

}  // namespace NZELVYR20

#pragma once

#include <string>

#include "VYRExport.h"

namespace NZELVYR20 {

/// The host's logger.
class VYR_EXPORT ICoreLogger {
 public:
  virtual ~ICoreLogger();

  /// Takes one message, a single line without line end. The lower the level, the graver: the
  /// in-memory repository writes validation failures at 0 and definition failures at 3. What
  /// this throws passes through the operation that logs.
  virtual void Log(int level, const std::string& message) = 0;
};

}  // namespace NZELVYR20

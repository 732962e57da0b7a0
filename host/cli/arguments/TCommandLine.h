#pragma once

#include "TInvocation.h"

namespace NZELVYR20 {

/// Reads the program's arguments.
class TCommandLine {
 public:
  TCommandLine() = delete;

  /// Throws TUsageError. A request for help or for the version is an invocation like any other.
  static TInvocation Parse(int argc, char** argv);
};

}  // namespace NZELVYR20

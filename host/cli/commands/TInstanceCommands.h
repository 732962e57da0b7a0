#pragma once

#include <string>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ListElements.h"
#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// What commands print of instances for people.
class TInstanceCommands {
 public:
  TInstanceCommands() = delete;

  /// Every instance with its properties, class by class. Null properties, and classes without
  /// instances of their own, are left out.
  static void Overview(ICIMNamespace& nameSpace, const TTerminal& terminal,
                       const TWriteText& write);

  /// One instance with all its properties, as people read them or as they are stored.
  static std::string Show(ICIMInstance& instance, bool isRaw, const TTerminal& terminal);
};

}  // namespace NZELVYR20

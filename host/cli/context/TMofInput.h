#pragma once

#include <boost/shared_ptr.hpp>

#include "ICIMNamespace.h"
#include "TInvocation.h"

namespace NZELVYR20 {

/// Brings MOF into a namespace.
class TMofInput {
 public:
  TMofInput() = delete;

  /// Loads what the user names, if anything. Messages and, where it is of interest, a summary go to
  /// standard error. False when something was wrong or refused, and therefore left out; where a
  /// strict load stopped, a TCommandError.
  static bool LoadFiles(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                        const THostOptions& options);
};

}  // namespace NZELVYR20

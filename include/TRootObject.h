#pragma once

#include <boost/shared_ptr.hpp>

#include "VYRExport.h"

namespace NZELVYR20 {

class ICoreLogger;
class INamespaceProviderManager;

/// The host services, one of each per process. All operations may be called from any thread.
class VYR_EXPORT TRootObject {
 public:
  TRootObject() = delete;

  /// The logger in force; never empty. Unless the host put its own in place it writes to standard
  /// error what is within the threshold, and never throws.
  static boost::shared_ptr<ICoreLogger> GetCoreLogger();

  /// Puts a logger in place; an empty pointer restores the host's own.
  static void SetCoreLogger(const boost::shared_ptr<ICoreLogger>& logger);

  /// The highest level that the host's own logger writes; 3 at the start. A negative threshold
  /// silences it.
  static void SetLogThreshold(int level);

  /// Where namespace providers register themselves when their library is loaded; never empty.
  static boost::shared_ptr<INamespaceProviderManager> GetNamespaceProviderManager();
};

}  // namespace NZELVYR20

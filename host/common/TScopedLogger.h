#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "ICoreLogger.h"

namespace NZELVYR20 {

/// Stands between the repository and its logger while it lives. Those of several threads may end in
/// any order; each takes the messages of all threads.
class TScopedLogger {
 public:
  /// Takes each message, and the logger that was there before.
  using TFilter = std::function<void(ICoreLogger& earlier, int level, const std::string& message)>;

  explicit TScopedLogger(const TFilter& filter);
  TScopedLogger(const TScopedLogger&) = delete;
  TScopedLogger& operator=(const TScopedLogger&) = delete;
  ~TScopedLogger();

 private:
  class TFilteringLogger;

  boost::shared_ptr<TFilteringLogger> logger_;
};

}  // namespace NZELVYR20

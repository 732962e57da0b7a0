#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>
#include <string>

#include "ICoreLogger.h"

namespace NZELVYR20 {

/// Stands between the repository and its logger while it lives.
class TScopedLogger {
 public:
  /// Takes each message, and the logger that was there before.
  using TFilter = std::function<void(ICoreLogger& earlier, int level, const std::string& message)>;

  explicit TScopedLogger(const TFilter& filter);
  TScopedLogger(const TScopedLogger&) = delete;
  TScopedLogger& operator=(const TScopedLogger&) = delete;
  ~TScopedLogger();

 private:
  boost::shared_ptr<ICoreLogger> earlier_;
};

}  // namespace NZELVYR20

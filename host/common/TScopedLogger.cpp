#include "TScopedLogger.h"

#include <atomic>
#include <boost/make_shared.hpp>
#include <mutex>
#include <string>
#include <utility>

#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

using TLoggerPtr = boost::shared_ptr<ICoreLogger>;

/// For whoever changes which logger is in force.
std::mutex& Mutex() {
  static std::mutex mutex;
  return mutex;
}

}  // namespace

class TScopedLogger::TFilteringLogger : public ICoreLogger {
 public:
  TFilteringLogger(TLoggerPtr earlier, TFilter filter)
      : earlier_(std::move(earlier)), filter_(std::move(filter)) {}

  void Log(int level, const std::string& message) override {
    if (isOver_) {
      earlier_->Log(level, message);
    } else {
      filter_(*earlier_, level, message);
    }
  }

  void End() { isOver_ = true; }

  /// The logger without those in front of it that are over.
  static TLoggerPtr Skip(TLoggerPtr logger) {
    for (;;) {
      const auto filtering = boost::dynamic_pointer_cast<TFilteringLogger>(logger);
      if (!filtering || !filtering->isOver_) return logger;
      logger = filtering->earlier_;
    }
  }

 private:
  TLoggerPtr earlier_;
  TFilter filter_;
  std::atomic<bool> isOver_{false};
};

TScopedLogger::TScopedLogger(const TFilter& filter) {
  const std::lock_guard<std::mutex> lock(Mutex());
  logger_ = boost::make_shared<TFilteringLogger>(TRootObject::GetCoreLogger(), filter);
  TRootObject::SetCoreLogger(logger_);
}

TScopedLogger::~TScopedLogger() {
  const std::lock_guard<std::mutex> lock(Mutex());
  logger_->End();
  TRootObject::SetCoreLogger(TFilteringLogger::Skip(TRootObject::GetCoreLogger()));
}

}  // namespace NZELVYR20

#include "TScopedLogger.h"

#include <boost/make_shared.hpp>
#include <string>
#include <utility>

#include "TRootObject.h"

namespace NZELVYR20 {
namespace {

class TFilteringLogger : public ICoreLogger {
 public:
  TFilteringLogger(boost::shared_ptr<ICoreLogger> earlier, TScopedLogger::TFilter filter)
      : earlier_(std::move(earlier)), filter_(std::move(filter)) {}

  void Log(int level, const std::string& message) override { filter_(*earlier_, level, message); }

 private:
  boost::shared_ptr<ICoreLogger> earlier_;
  TScopedLogger::TFilter filter_;
};

}  // namespace

TScopedLogger::TScopedLogger(const TFilter& filter) : earlier_(TRootObject::GetCoreLogger()) {
  TRootObject::SetCoreLogger(boost::make_shared<TFilteringLogger>(earlier_, filter));
}

TScopedLogger::~TScopedLogger() { TRootObject::SetCoreLogger(earlier_); }

}  // namespace NZELVYR20

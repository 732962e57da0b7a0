#include "TProgressLine.h"

#include <boost/make_shared.hpp>
#include <string>
#include <utility>

#include "TRootObject.h"
#include "TStandardStreams.h"

namespace NZELVYR20 {
namespace {

constexpr std::chrono::milliseconds kPatience(300);
constexpr std::chrono::milliseconds kPause(100);

class TClearingLogger : public ICoreLogger {
 public:
  TClearingLogger(TProgressLine& line, boost::shared_ptr<ICoreLogger> logger)
      : line_(line), logger_(std::move(logger)) {}

  void Log(int level, const std::string& message) override {
    line_.Clear();
    logger_->Log(level, message);
  }

 private:
  TProgressLine& line_;
  boost::shared_ptr<ICoreLogger> logger_;
};

}  // namespace

TProgressLine::TProgressLine()
    : isTerminal_(TStandardStreams::IsErrorTerminal()),
      next_(TClock::now() + kPatience),
      earlierLogger_(TRootObject::GetCoreLogger()) {
  if (isTerminal_) {
    TRootObject::SetCoreLogger(boost::make_shared<TClearingLogger>(*this, earlierLogger_));
  }
}

TProgressLine::~TProgressLine() {
  Clear();
  TRootObject::SetCoreLogger(earlierLogger_);
}

void TProgressLine::Show(const std::string& text) {
  const TClock::time_point now = TClock::now();
  if (!isTerminal_ || now < next_) {
    return;
  }
  TStandardStreams::RewriteErrorLine(text);
  isShown_ = true;
  next_ = now + kPause;
}

void TProgressLine::Clear() {
  if (isShown_) {
    TStandardStreams::ClearErrorLine();
    isShown_ = false;
  }
}

}  // namespace NZELVYR20

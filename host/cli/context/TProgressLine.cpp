#include "TProgressLine.h"

#include <string>

#include "TStandardStreams.h"

namespace NZELVYR20 {
namespace {

constexpr std::chrono::milliseconds kPatience(300);
constexpr std::chrono::milliseconds kPause(100);

}  // namespace

TProgressLine::TProgressLine()
    : isTerminal_(TStandardStreams::IsErrorTerminal()), next_(TClock::now() + kPatience) {
  if (isTerminal_) {
    logger_.emplace([this](ICoreLogger& earlier, int level, const std::string& message) {
      Clear();
      earlier.Log(level, message);
    });
  }
}

TProgressLine::~TProgressLine() { Clear(); }

bool TProgressLine::IsDue() const { return isTerminal_ && TClock::now() >= next_; }

void TProgressLine::Show(const std::string& text) {
  TStandardStreams::RewriteErrorLine(text);
  isShown_ = true;
  next_ = TClock::now() + kPause;
}

void TProgressLine::Clear() {
  if (isShown_) {
    TStandardStreams::ClearErrorLine();
    isShown_ = false;
  }
}

}  // namespace NZELVYR20

#pragma once

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <ostream>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "ICoreLogger.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {

struct TLogLine {
  int level;
  std::string text;

  bool operator==(const TLogLine& other) const {
    return level == other.level && text == other.text;
  }
};

/// What an operation did, as a host sees it: the status that it threw (0 when it returned) and
/// what it logged meanwhile, in order.
struct TOutcome {
  int status = 0;
  std::vector<TLogLine> log;

  static TOutcome Quiet(int status = 0) { return {status, {}}; }
  static TOutcome Logged(int status, int level, const std::string& text) {
    return {status, {{level, text}}};
  }

  bool operator==(const TOutcome& other) const {
    return status == other.status && log == other.log;
  }

  friend std::ostream& operator<<(std::ostream& stream, const TOutcome& outcome) {
    stream << "status " << outcome.status;
    for (const TLogLine& line : outcome.log) {
      stream << "\n  [" << line.level << "] " << line.text;
    }
    return stream;
  }
};

/// What a host may throw: a failure of a type of its own.
struct TForeignFailure : TVYRException {
  using TVYRException::TVYRException;
};

/// Expects that a plain failure comes out of the operation, of this status, whatever went in.
template <class TOperation>
void ExpectPlainFailure(int status, TOperation operation) {
  try {
    operation();
    ADD_FAILURE() << "no failure";
  } catch (const TVYRException& failure) {
    EXPECT_EQ(failure.GetStatusCode(), status);
    EXPECT_TRUE(typeid(failure) == typeid(TVYRException));
  }
}

/// Takes the place of the host's logger as long as it lives.
class TLogRecorder {
 public:
  TLogRecorder() : logger_(boost::make_shared<TLogger>()) { TRootObject::SetCoreLogger(logger_); }
  TLogRecorder(const TLogRecorder&) = delete;
  TLogRecorder& operator=(const TLogRecorder&) = delete;
  ~TLogRecorder() { TRootObject::SetCoreLogger({}); }

  /// What was logged since the last call.
  std::vector<TLogLine> Take() { return std::exchange(logger_->lines, {}); }

 private:
  struct TLogger : ICoreLogger {
    void Log(int level, const std::string& message) override { lines.push_back({level, message}); }
    std::vector<TLogLine> lines;
  };

  boost::shared_ptr<TLogger> logger_;
};

}  // namespace NZELVYR20

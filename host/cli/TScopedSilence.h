#pragma once

#include <boost/shared_ptr.hpp>

#include "ICoreLogger.h"

namespace NZELVYR20 {

/// Keeps log messages from the user while it lives: a look-up on the user's behalf logs what the
/// program is about to report itself.
class TScopedSilence {
 public:
  TScopedSilence();
  TScopedSilence(const TScopedSilence&) = delete;
  TScopedSilence& operator=(const TScopedSilence&) = delete;
  ~TScopedSilence();

 private:
  boost::shared_ptr<ICoreLogger> earlierLogger_;
};

}  // namespace NZELVYR20

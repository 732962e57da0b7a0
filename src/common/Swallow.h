#pragma once

#include <exception>

namespace NZELVYR20 {

/// Makes the call, and lets what it throws go no further; tells whether it came to its end. The end
/// of a thread (pthread_exit, cancellation) unwinds like an exception but is none, and passes:
/// whoever kept it would end the process.
template <class TCall>
bool Swallow(TCall call) {
  try {
    call();
    return true;
  } catch (...) {
    if (!std::current_exception()) throw;
    return false;
  }
}

}  // namespace NZELVYR20

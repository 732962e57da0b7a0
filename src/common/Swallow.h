#pragma once

#include <cxxabi.h>

namespace NZELVYR20 {

/// Makes the call, and lets what it throws go no further; tells whether it came to its end. The end
/// of a thread (pthread_exit, cancellation) unwinds like an exception, and passes: whoever kept it
/// would end the process.
template <class TCall>
bool Swallow(TCall call) {
  try {
    call();
    return true;
  } catch (const abi::__forced_unwind&) {
    throw;
  } catch (...) {
    return false;
  }
}

}  // namespace NZELVYR20

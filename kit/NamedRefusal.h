#pragma once

#include <string>

#include "TKitError.h"
#include "TVYRException.h"

namespace NZELVYR20 {

/// Makes the call; a status becomes a failure that says of what it is.
template <class TCall>
auto Named(const std::string& subject, const TCall& call) {
  try {
    return call();
  } catch (const TVYRException& refusal) {
    throw TKitError(subject + ": " + refusal.what());
  }
}

}  // namespace NZELVYR20

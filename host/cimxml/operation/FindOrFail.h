#pragma once

#include <string>

#include "TCimFailure.h"
#include "TVYRException.h"

namespace NZELVYR20 {

/// What `find()` finds in the repository; where that is nothing, a TCimFailure of that status.
template <class TFind>
auto FindOrFail(const TFind& find, ECimStatus status, const std::string& what) {
  try {
    if (auto found = find()) return found;
  } catch (const TVYRException& failure) {
    const TVYRStatusCode code = failure.GetStatusCode();
    if (code != TVYRStatusCode::kNotFound && code != TVYRStatusCode::kInvalidName) throw;
  }
  throw TCimFailure(status, "not found: " + what);
}

}  // namespace NZELVYR20

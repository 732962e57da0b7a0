#pragma once

#include "TVYRException.h"

namespace NZELVYR20 {

/// What `find` gives, or nothing where it throws status 15.
template <class TFind>
auto FindOrNothing(const TFind& find) -> decltype(find()) {
  try {
    return find();
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    return {};
  }
}

}  // namespace NZELVYR20

#pragma once

#include <boost/shared_ptr.hpp>
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

/// The element; where there is none, a failure that says for what it was wanted.
template <class TElement>
const boost::shared_ptr<TElement>& Given(const boost::shared_ptr<TElement>& element,
                                         const std::string& subject, const char* what) {
  if (!element) throw TKitError(subject + ": no " + what + " was given");
  return element;
}

}  // namespace NZELVYR20

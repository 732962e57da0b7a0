#pragma once

#include <boost/shared_ptr.hpp>
#include <exception>
#include <vector>

namespace NZELVYR20 {

/// What an enumeration of the repository calls back with, in its order. `enumerate` receives the
/// callback to pass on. Most enumerations discard what a callback throws, so that work on the
/// elements belongs after the walk, not into it. Where there is no memory for the list, the walk
/// goes on to its end and the failure follows.
template <class TElement, class TEnumerate>
std::vector<boost::shared_ptr<TElement>> ListElements(const TEnumerate& enumerate) {
  std::vector<boost::shared_ptr<TElement>> elements;
  std::exception_ptr failure;
  enumerate([&](const boost::shared_ptr<TElement>& element) {
    try {
      elements.push_back(element);
    } catch (...) {
      if (!failure) failure = std::current_exception();
    }
    return true;
  });
  if (failure) std::rethrow_exception(failure);
  return elements;
}

}  // namespace NZELVYR20

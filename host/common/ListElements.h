#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

namespace NZELVYR20 {

/// What an enumeration of the repository calls back with, in its order. `enumerate` receives the
/// callback to pass on. Most enumerations discard what a callback throws, so that work on the
/// elements belongs after the walk, not into it.
template <class TElement, class TEnumerate>
std::vector<boost::shared_ptr<TElement>> ListElements(const TEnumerate& enumerate) {
  std::vector<boost::shared_ptr<TElement>> elements;
  enumerate([&elements](const boost::shared_ptr<TElement>& element) {
    elements.push_back(element);
    return true;
  });
  return elements;
}

}  // namespace NZELVYR20

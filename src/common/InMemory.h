#pragma once

#include <boost/assert.hpp>
#include <boost/shared_ptr.hpp>
#include <utility>

namespace NZELVYR20 {

/// The in-memory form of an element that came in through an interface. The repository links only
/// elements of its own: one of another implementation is a programming error of the host.
template <class TElement, class TInterface>
boost::shared_ptr<TElement> InMemory(boost::shared_ptr<TInterface> element) {
  auto inMemory = boost::dynamic_pointer_cast<TElement>(std::move(element));
  BOOST_ASSERT(inMemory);
  return inMemory;
}

}  // namespace NZELVYR20

#pragma once

#include <boost/assert.hpp>
#include <boost/shared_ptr.hpp>
#include <typeinfo>
#include <utility>

namespace NZELVYR20 {

/// An element that came in through an interface as one of the repository's own; empty where it is
/// another's. One look tells those that are of this very type, as nearly all are; a search through
/// their bases takes ten times as long.
template <class TElement, class TInterface>
TElement* FindInMemory(TInterface* element) {
  if (element != nullptr && typeid(*element) == typeid(TElement)) {
    return static_cast<TElement*>(element);
  }
  return dynamic_cast<TElement*>(element);
}
template <class TElement, class TInterface>
boost::shared_ptr<TElement> FindInMemory(boost::shared_ptr<TInterface> element) {
  auto* const found = FindInMemory<TElement>(element.get());
  return found ? boost::shared_ptr<TElement>(std::move(element), found)
               : boost::shared_ptr<TElement>();
}

/// The in-memory form of an element that came in through an interface. The repository links only
/// elements of its own: one of another implementation is a programming error of the host.
template <class TElement, class TInterface>
boost::shared_ptr<TElement> InMemory(boost::shared_ptr<TInterface> element) {
  auto inMemory = FindInMemory<TElement>(std::move(element));
  BOOST_ASSERT(inMemory);
  return inMemory;
}

}  // namespace NZELVYR20

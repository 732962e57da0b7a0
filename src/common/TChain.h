#pragma once

#include <boost/intrusive/slist.hpp>

namespace NZELVYR20 {

/// A member by which an object stands in a TChain.
using TChainLink =
    boost::intrusive::slist_member_hook<boost::intrusive::link_mode<boost::intrusive::normal_link>>;

/// Objects of others' that stand in a list by a member of their own, latest first. Nothing is
/// allocated, so nothing fails. Taking one out costs a look at those in front of it: meant for few,
/// or for such as leave in the opposite order of their coming.
template <class TObject, TChainLink TObject::*kLink>
class TChain {
  using TList =
      boost::intrusive::slist<TObject, boost::intrusive::member_hook<TObject, TChainLink, kLink>,
                              boost::intrusive::constant_time_size<false>,
                              boost::intrusive::linear<true>>;

 public:
  using TIterator = typename TList::const_iterator;

  bool IsEmpty() const { return list_.empty(); }
  TObject& GetFirst() { return list_.front(); }

  void Add(TObject& object) noexcept { list_.push_front(object); }
  void Remove(TObject& object) noexcept { list_.erase(list_.iterator_to(object)); }

  auto begin() { return list_.begin(); }
  auto end() { return list_.end(); }
  TIterator begin() const { return list_.begin(); }
  TIterator end() const { return list_.end(); }

 private:
  TList list_;
};

}  // namespace NZELVYR20

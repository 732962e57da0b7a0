#pragma once

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <utility>

#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// What the pointers to one property of an instance share: as long as anybody has one, all who ask
/// for the property get pointers of that owner, and it holds the instance. So pointers to different
/// properties differ also for collections that tell owners apart.
class TPropertyHolder {
 public:
  using TInstancePointer = boost::shared_ptr<const TInmemInstance>;

  /// A pointer to a property that nobody holds. Its holder enters the list of the instance, of
  /// which `first` is the front.
  static boost::shared_ptr<ICIMProperty> Share(TInstancePointer instance,
                                               TInmemInstanceProperty& property,
                                               TPropertyHolder*& first) {
    auto holder = boost::make_shared<TPropertyHolder>(std::move(instance), property, first);
    holder->self_ = holder;
    return boost::shared_ptr<ICIMProperty>(std::move(holder), &property);
  }

  /// One more pointer to its property.
  boost::shared_ptr<ICIMProperty> Share() const {
    return boost::shared_ptr<ICIMProperty>(self_.lock(), &property_);
  }

  TPropertyHolder(TInstancePointer instance, TInmemInstanceProperty& property,
                  TPropertyHolder*& first)
      : instance_(std::move(instance)), property_(property), place_(&first), next_(first) {
    if (next_) next_->place_ = &next_;
    first = this;
    property_.isHeld_ = true;
  }
  TPropertyHolder(const TPropertyHolder&) = delete;
  TPropertyHolder& operator=(const TPropertyHolder&) = delete;

  ~TPropertyHolder() {
    property_.isHeld_ = false;
    if (next_) next_->place_ = place_;
    *place_ = next_;
  }

  bool Holds(const TInmemInstanceProperty& property) const { return &property_ == &property; }
  TPropertyHolder* GetNext() const { return next_; }

 private:
  const TInstancePointer instance_;
  boost::weak_ptr<TPropertyHolder> self_;
  TInmemInstanceProperty& property_;
  TPropertyHolder** place_;  ///< what points to this one
  TPropertyHolder* next_;
};

}  // namespace NZELVYR20

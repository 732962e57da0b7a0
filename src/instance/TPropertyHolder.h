#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>

#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// What the pointers to one property of an instance share: as long as anybody has one, all who ask
/// for the property get pointers of that owner, and it holds the instance. So pointers to different
/// properties differ also for collections that tell owners apart.
class TPropertyHolder : public boost::enable_shared_from_this<TPropertyHolder> {
 public:
  /// Enters the list of its instance, of which `first` is the front.
  TPropertyHolder(const boost::shared_ptr<const TInmemInstance>& instance,
                  TInmemInstanceProperty& property, TPropertyHolder*& first)
      : instance_(instance), property_(property), place_(&first), next_(first) {
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

  boost::shared_ptr<ICIMProperty> Share() {
    return boost::shared_ptr<ICIMProperty>(shared_from_this(), &property_);
  }

 private:
  const boost::shared_ptr<const TInmemInstance> instance_;
  TInmemInstanceProperty& property_;
  TPropertyHolder** place_;  ///< what points to this one
  TPropertyHolder* next_;
};

}  // namespace NZELVYR20

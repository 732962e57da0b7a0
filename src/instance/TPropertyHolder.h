#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <utility>

#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// What the pointers to one property of an instance share: as long as anybody has one, all who ask
/// for the property get pointers of that owner, and it holds the instance. So pointers to different
/// properties differ also for collections that tell owners apart.
///
/// It is the deleter of these pointers, and so stands in the one block of memory that they need.
class TPropertyHolder {
 public:
  using TInstancePointer = boost::shared_ptr<const TInmemInstance>;
  using TPointer = boost::shared_ptr<ICIMProperty>;

  /// A pointer to a property that nobody holds. Its holder enters the list of the instance, of
  /// which `first` is the front.
  static TPointer Share(TInstancePointer instance, TInmemInstanceProperty& property,
                        TPropertyHolder*& first) {
    TPointer pointer(&property, TPropertyHolder());
    boost::get_deleter<TPropertyHolder>(pointer)->Enter(std::move(instance), pointer, property,
                                                        first);
    return pointer;
  }

  /// One more pointer to its property.
  TPointer Share() const { return self_.lock(); }

  bool Holds(const TInmemInstanceProperty& property) const { return property_ == &property; }
  TPropertyHolder* GetNext() const { return next_; }

  /// The last pointer is gone, or there was no memory for one: then nothing is held yet.
  void operator()(ICIMProperty*) noexcept {
    if (!property_) return;
    property_->isHeld_ = false;
    if (next_) next_->place_ = place_;
    *place_ = next_;
    self_.reset();
    instance_.reset();
  }

 private:
  void Enter(TInstancePointer instance, const TPointer& self, TInmemInstanceProperty& property,
             TPropertyHolder*& first) noexcept {
    instance_ = std::move(instance);
    self_ = self;
    property_ = &property;
    place_ = &first;
    next_ = first;
    if (next_) next_->place_ = &next_;
    first = this;
    property.isHeld_ = true;
  }

  TInstancePointer instance_;
  boost::weak_ptr<ICIMProperty> self_;
  TInmemInstanceProperty* property_ = nullptr;
  TPropertyHolder** place_ = nullptr;  ///< what points to this one
  TPropertyHolder* next_ = nullptr;
};

}  // namespace NZELVYR20

#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <utility>

#include "TChain.h"
#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// What the pointers to one property of an instance share: as long as anybody has one, all who ask
/// for the property get pointers of that owner, and it holds the instance. So pointers to different
/// properties differ also for collections that tell owners apart.
///
/// It is the deleter of these pointers, and so stands in the one block of memory that they need.
class TPropertyHolder {
  TChainLink ofInstance_;

 public:
  using TList = TChain<TPropertyHolder, &TPropertyHolder::ofInstance_>;
  using TInstancePointer = boost::shared_ptr<const TInmemInstance>;
  using TPointer = boost::shared_ptr<ICIMProperty>;

  /// A pointer to a property that nobody holds. Its holder enters the list of the instance's.
  static TPointer Share(TInstancePointer instance, TInmemInstanceProperty& property,
                        TList& holders) {
    TPointer pointer(&property, TPropertyHolder());
    auto* const holder = boost::get_deleter<TPropertyHolder>(pointer);
    holder->instance_ = std::move(instance);
    holder->self_ = pointer;
    holder->property_ = &property;
    holder->holders_ = &holders;
    holders.Add(*holder);
    property.isHeld_ = true;
    return pointer;
  }

  /// One more pointer to its property.
  TPointer Share() const { return self_.lock(); }

  bool Holds(const TInmemInstanceProperty& property) const { return property_ == &property; }

  /// The last pointer is gone; or there was no memory for one, and nothing is held yet.
  void operator()(ICIMProperty*) noexcept {
    if (!property_) return;
    property_->isHeld_ = false;
    holders_->Remove(*this);
    self_.reset();
    instance_.reset();
  }

 private:
  TInstancePointer instance_;
  boost::weak_ptr<ICIMProperty> self_;
  TInmemInstanceProperty* property_ = nullptr;
  TList* holders_ = nullptr;
};

}  // namespace NZELVYR20

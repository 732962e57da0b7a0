#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstddef>

#include "TChain.h"
#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// A property of an instance as others hold it. It is made when somebody asks for the property, and
/// is what all get who ask for that property until the last pointer goes. The instance is there
/// until then, even if nobody holds it any more. So pointers to different properties differ also
/// for collections that tell owners apart.
class THeldProperty final : public TInmemInstanceProperty {
  TChainLink ofInstance_;

 public:
  using TList = TChain<THeldProperty, &THeldProperty::ofInstance_>;
  using TPointer = boost::shared_ptr<ICIMProperty>;

  /// One that nobody holds yet. It stands in the list of the instance's.
  static TPointer Make(TInmemInstance& instance, std::size_t position);

  /// Only Make makes it.
  THeldProperty(TInmemInstance& instance, std::size_t position);
  THeldProperty(const THeldProperty&) = delete;
  ~THeldProperty() override;

  /// One more pointer to it.
  TPointer Share() const { return self_.lock(); }

  using TInmemInstanceProperty::operator=;
  THeldProperty& operator=(const THeldProperty&) { return *this; }

 private:
  boost::weak_ptr<ICIMProperty> self_;
};

}  // namespace NZELVYR20

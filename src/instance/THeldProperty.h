#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/smart_ptr/detail/sp_counted_base.hpp>
#include <cstddef>

#include "TChain.h"
#include "TInmemInstanceProperty.h"

namespace NZELVYR20 {

/// A property of an instance as others hold it. It is made when somebody asks for the property, and
/// is what all get who ask for that property until the last pointer goes. The instance is there
/// until then, even if nobody holds it any more. So pointers to different properties differ also
/// for collections that tell owners apart.
///
/// It is itself what its pointers share, and so can make one more of them without a weak pointer to
/// itself, which would cost as many atomic operations as all else. Boost has no public way to do
/// so.
class THeldProperty final : public TInmemInstanceProperty, private boost::detail::sp_counted_base {
  TChainLink ofInstance_;

 public:
  using TList = TChain<THeldProperty, &THeldProperty::ofInstance_>;
  using TPointer = boost::shared_ptr<ICIMProperty>;

  /// One that nobody holds yet. It stands in the list of the instance's.
  static TPointer Make(TInmemInstance& instance, std::size_t position);

  THeldProperty(const THeldProperty&) = delete;

  /// One more pointer to it.
  TPointer Share();

  using TInmemInstanceProperty::operator=;
  THeldProperty& operator=(const THeldProperty&) { return *this; }

 protected:
  boost::shared_ptr<const void> Hold() override { return Share(); }

 private:
  THeldProperty(TInmemInstance& instance, std::size_t position)
      : TInmemInstanceProperty(instance, position) {}
  ~THeldProperty() override = default;

  /// A pointer that is counted already.
  TPointer GetCounted();

  // NOLINTBEGIN(readability-identifier-naming): names of the library's
  void dispose() noexcept override;  ///< the last pointer went
  void* get_deleter(const boost::detail::sp_typeinfo_&) noexcept override { return nullptr; }
  void* get_local_deleter(const boost::detail::sp_typeinfo_&) noexcept override { return nullptr; }
  void* get_untyped_deleter() noexcept override { return nullptr; }
  // NOLINTEND(readability-identifier-naming)
};

}  // namespace NZELVYR20

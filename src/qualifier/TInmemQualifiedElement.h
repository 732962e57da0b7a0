#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <utility>

#include "TInmemQualifierSet.h"

namespace NZELVYR20 {

/// What every element with qualifiers has in common, whichever interface it implements. How it
/// answers a look-up that misses, and how it enumerates, is each element's own.
template <class TInterface, class TSelf>
class TInmemQualifiedElement : public TInterface, public boost::enable_shared_from_this<TSelf> {
 public:
  TInmemQualifiedElement(const TInmemQualifiedElement&) = delete;

  TInterface& operator=(const TInterface&) override { return *this; }
  TInmemQualifiedElement& operator=(const TInmemQualifiedElement&) { return *this; }

  void AddQualifier(boost::shared_ptr<ICIMQualifier> qualifier, TCIMContext) override {
    // A declaration of the host's that is asked may let go of this.
    const auto self = this->shared_from_this();
    qualifiers_.Add(std::move(qualifier));
  }

  boost::shared_ptr<ICIMQualifier> AllocateQualifier(
      boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
      TCIMContext) override {
    // The owner is known before a declaration of the host's is asked, with which this may go.
    return TInmemQualifier::Make(GetOwner(), std::move(declaration), value);
  }

  boost::shared_ptr<ICIMQualifier> AllocateQualifier(
      boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
      ICIMQualifierDecl::EFlavor flavor, TCIMContext) override {
    return TInmemQualifier::Make(GetOwner(), std::move(declaration), value, flavor);
  }

  const TInmemQualifierSet& GetQualifiers() const { return qualifiers_; }

  /// Lets go of the classes that the qualifiers hold.
  void ReleaseClasses() noexcept { qualifiers_.ReleaseClasses(); }

 protected:
  explicit TInmemQualifiedElement(TInmemQualifierSet::EMatch match) : qualifiers_(match) {}
  ~TInmemQualifiedElement() override = default;

  TInmemQualifierSet qualifiers_;

 private:
  /// This, as its qualifiers know it.
  TInmemQualifier::TOwner GetOwner() { return {this->weak_from_this(), this}; }
};

}  // namespace NZELVYR20

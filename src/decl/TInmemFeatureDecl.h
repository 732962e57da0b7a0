#pragma once

#include <cstdint>

#include "TInmemDeclaration.h"

namespace NZELVYR20 {

/// What the declarations of properties and methods have in common: a class shares them with its
/// subclasses, which may be of other namespaces.
///
/// A declaration and the classes that it refers to may hold each other. It lets go of these when
/// the last class that uses it has lost its namespace, never while another still shows it.
template <class TInterface, class TSelf>
class TInmemFeatureDecl : public TInmemDeclaration<TInterface, TSelf> {
 public:
  using TInmemDeclaration<TInterface, TSelf>::operator=;
  TInmemFeatureDecl& operator=(const TInmemFeatureDecl&) { return *this; }

  /// A class of a living namespace, or a list of what instances have, uses the declaration.
  void BeginUse() { ++uses_; }
  void EndUse() {
    --uses_;
    ReleaseUnused();
  }

  /// A class that has lost its namespace still shows the declaration.
  void BeginRemaining() { ++remains_; }
  void EndRemaining() { --remains_; }

  /// A class that uses the declaration loses its namespace; ReleaseUnused has to follow.
  void Retire() {
    --uses_;
    ++remains_;
  }
  void ReleaseUnused() {
    if (uses_ == 0 && remains_ > 0) static_cast<TSelf&>(*this).ReleaseClasses();
  }

 protected:
  using TInmemDeclaration<TInterface, TSelf>::TInmemDeclaration;
  ~TInmemFeatureDecl() override = default;

 private:
  std::uint32_t uses_ = 0;
  std::uint32_t remains_ = 0;
};

}  // namespace NZELVYR20

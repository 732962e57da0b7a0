#pragma once

#include <string>

#include "NormalizedNames.h"
#include "TInmemQualifiedElement.h"

namespace NZELVYR20 {

/// What the declarations of properties, methods and parameters have in common: a name as it was
/// given, by which alone they compare, and qualifiers.
template <class TInterface, class TSelf>
class TInmemDeclaration : public TInmemQualifiedElement<TInterface, TSelf> {
 public:
  const std::string& GetName(TCIMContext) const override { return name_; }

  /// The same, for look-ups in which each call counts.
  const std::string& GetGivenName() const { return name_; }

  bool operator==(TInterface& other) const override { return IsSameName(name_, other.GetName({})); }

  bool operator<(TInterface& other) const override { return IsNameLess(name_, other.GetName({})); }

  using TInmemQualifiedElement<TInterface, TSelf>::operator=;
  TInmemDeclaration& operator=(const TInmemDeclaration&) { return *this; }

 protected:
  explicit TInmemDeclaration(const std::string& name)
      : TInmemQualifiedElement<TInterface, TSelf>(TInmemQualifierSet::EMatch::kValueAndFlavor),
        name_(name) {}
  ~TInmemDeclaration() override = default;

  const std::string name_;
};

}  // namespace NZELVYR20

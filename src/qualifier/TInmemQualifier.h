#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstdint>
#include <limits>
#include <string>

#include "ICIMQualifier.h"
#include "TTypedValue.h"

namespace NZELVYR20 {

/// One qualifier of one element. It knows the element weakly and holds its declaration.
class TInmemQualifier : public ICIMQualifier {
 public:
  using TOwner = boost::weak_ptr<const ICIMNamedElement>;

  /// Only what this makes may be attached: there are many qualifiers, and so they are small.
  static boost::shared_ptr<TInmemQualifier> Make(
      TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value,
      ICIMQualifierDecl::EFlavor flavor);

  /// The same, with the flavor of the declaration.
  static boost::shared_ptr<TInmemQualifier> Make(
      TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration, const TCIMValue& value);

  TInmemQualifier(TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration,
                  const TCIMValue& value, ICIMQualifierDecl::EFlavor flavor);

  /// With the flavor of the declaration.
  TInmemQualifier(TOwner owner, boost::shared_ptr<const ICIMQualifierDecl> declaration,
                  const TCIMValue& value);

  /// A copy for another element. The propagated mark is carried over as it is: whoever passes a
  /// qualifier down sets it.
  TInmemQualifier(TOwner owner, const boost::shared_ptr<const ICIMQualifier>& source);

  TInmemQualifier(const TInmemQualifier&) = delete;
  ~TInmemQualifier() override;

  void SetPropagated(bool propagated) { propagated_ = propagated; }

  /// A propagated copy for another element.
  boost::shared_ptr<TInmemQualifier> PassDown(TOwner owner) const;

  /// The last pointer has gone.
  void LetGo() noexcept { this->~TInmemQualifier(); }

  /// How often the value was set; the last revision stands for any number from there on.
  static constexpr std::uint16_t kLastRevision = std::numeric_limits<std::uint16_t>::max();
  std::uint16_t GetRevision() const { return revision_; }

  /// Whether the value, or the declaration's default, may hold classes.
  bool MayHoldClasses() const;

  /// The same for the same element, but for these classes. Others may use the qualifier and its
  /// declaration as they are.
  boost::shared_ptr<TInmemQualifier> CopyWithoutClasses() const;

  void Validate(TCIMContext context) override;
  void AddToClassOrProperty(TCIMContext context) const override;
  void RemoveFromClassOrProperty(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) const override;
  boost::shared_ptr<ICIMNamedElement> GetClassOrProperty(TCIMContext context) const override;
  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  boost::shared_ptr<const ICIMQualifierDecl> GetDeclaration(TCIMContext context) const override;
  const TCIMValue& GetValue(TCIMContext context) const override;
  void SetValue(const TCIMValue& value, TCIMContext context) override;
  void SetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext context) override;
  void UnsetFlavor(ICIMQualifierDecl::EFlavor flavor, TCIMContext context) override;
  ICIMQualifierDecl::EFlavor GetFlavor(TCIMContext context) const override;
  bool operator==(ICIMQualifier& other) const override;
  bool operator<(ICIMQualifier& other) const override;
  bool GetPropagated(TCIMContext context) const override;
  ICIMQualifier& operator=(const ICIMQualifier& other) override;
  TInmemQualifier& operator=(const TInmemQualifier& other);

 private:
  const TOwner owner_;
  const boost::shared_ptr<const ICIMQualifierDecl> declaration_;
  TTypedValue value_;
  ICIMQualifierDecl::EFlavor flavor_;
  bool propagated_;
  std::uint16_t revision_ = 0;  ///< as wide as there is room after the mark
};

}  // namespace NZELVYR20

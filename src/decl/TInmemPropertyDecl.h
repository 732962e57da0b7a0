#pragma once

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cstdint>
#include <memory>
#include <string>

#include "ICIMPropertyDecl.h"
#include "TInmemFeatureDecl.h"
#include "TTypedValue.h"

namespace NZELVYR20 {

class TInmemClass;
class TValueMapTable;

/// The declaration of a property. It has no type of its own: type and array-ness are those of the
/// default value.
class TInmemPropertyDecl : public TInmemFeatureDecl<ICIMPropertyDecl, TInmemPropertyDecl> {
 public:
  TInmemPropertyDecl(boost::weak_ptr<TInmemClass> owner, const std::string& name,
                     const TCIMValue& defaultValue);

  /// Copies nothing: the declaration has no name, class, default or qualifiers.
  TInmemPropertyDecl(const boost::shared_ptr<const TInmemClass>& owner,
                     const boost::shared_ptr<const ICIMPropertyDecl>& source);

  TInmemPropertyDecl(const TInmemPropertyDecl&) = delete;
  ~TInmemPropertyDecl() override;

  /// The qualifier of that name; empty when there is none, where GetQualifier throws.
  boost::shared_ptr<TInmemQualifier> LookupQualifier(const std::string& name) const;

  /// Takes out the qualifier of that name, whichever object it is; status 15 when there is none.
  void RemoveQualifier(const boost::shared_ptr<ICIMQualifier>& qualifier);

  bool IsReference() const { return default_.GetType() == TCIMValue::TCIMType::kReference; }

  /// The class to which the declaration refers; empty where it is no reference, or one that names
  /// no class.
  boost::shared_ptr<ICIMClass> GetReferencedClass() const;

  /// How often the default was set.
  std::uint64_t GetDefaultRevision() const { return defaultRevision_; }

  /// Room for what the display of values keeps with the declaration.
  std::unique_ptr<TValueMapTable>& GetValueMapTable() const { return valueMapTable_; }

  /// Lets go of the classes that the default and the qualifiers hold.
  void ReleaseClasses() noexcept;

  /// The last pointer to it has gone, where a TOneBlock made it.
  void LetGo() noexcept { this->~TInmemPropertyDecl(); }

  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext context) const override;
  void EnumerateQualifiers(const TCIMQualifierCallback& callback,
                           TCIMContext context) const override;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                TCIMContext context) const override;
  void Validate(TCIMContext context) override;
  void AddToClass(TCIMContext context) override;
  void RemoveFromClass(TCIMContext context) override;
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext context) const override;
  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  const TCIMValue& GetDefaultValue(TCIMContext context) const override;
  void SetDefaultValue(const TCIMValue& value, TCIMContext context) override;
  using TInmemFeatureDecl::operator=;
  TInmemPropertyDecl& operator=(const TInmemPropertyDecl&) { return *this; }

 private:
  const boost::weak_ptr<TInmemClass> class_;
  TTypedValue default_;
  std::uint64_t defaultRevision_ = 0;
  mutable std::unique_ptr<TValueMapTable> valueMapTable_;
};

}  // namespace NZELVYR20

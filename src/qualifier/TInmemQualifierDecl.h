#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "ICIMQualifierDecl.h"
#include "TTypedValue.h"

namespace NZELVYR20 {

class TInmemNamespace;

/// A qualifier declaration of a TInmemNamespace.
class TInmemQualifierDecl : public ICIMQualifierDecl,
                            public boost::enable_shared_from_this<TInmemQualifierDecl> {
 public:
  TInmemQualifierDecl(const boost::shared_ptr<TInmemNamespace>& nameSpace, const std::string& name,
                      const TCIMValue& defaultValue, EScope scope, EFlavor flavor);
  TInmemQualifierDecl(const TInmemQualifierDecl&) = delete;
  ~TInmemQualifierDecl() override;

  /// Whether the default may hold classes.
  bool MayHoldClasses() const { return default_.MayHoldClasses(); }

  /// The same, but for the classes that the default holds.
  boost::shared_ptr<TInmemQualifierDecl> CopyWithoutClasses() const;

  void Validate(TCIMContext context) override;
  void AddToNamespace(TCIMContext context) override;
  void RemoveQualifierDecl(TCIMContext context) override;
  const std::string& GetName(TCIMContext context) const override;
  boost::shared_ptr<ICIMNamespace> GetNamespace(TCIMContext context) const override;
  TCIMValue::TCIMType GetType(TCIMContext context) const override;
  bool IsArray(TCIMContext context) const override;
  const TCIMValue& GetDefaultValue(TCIMContext context) const override;
  void SetDefaultValue(const TCIMValue& value, TCIMContext context) override;
  EScope GetScope(TCIMContext context) const override;
  void SetFlavor(EFlavor flavor, TCIMContext context) override;
  void UnsetFlavor(EFlavor flavor, TCIMContext context) override;
  EFlavor GetFlavor(TCIMContext context) const override;
  bool operator==(ICIMQualifierDecl& other) const override;
  bool operator<(ICIMQualifierDecl& other) const override;
  ICIMQualifierDecl& operator=(const ICIMQualifierDecl& other) override;
  TInmemQualifierDecl& operator=(const TInmemQualifierDecl& other);

 private:
  const boost::weak_ptr<TInmemNamespace> namespace_;
  const std::string name_;
  TTypedValue default_;
  const EScope scope_;
  EFlavor flavor_;
};

}  // namespace NZELVYR20

#pragma once

#include <boost/weak_ptr.hpp>
#include <memory>
#include <optional>

#include "TInmemPropertyBase.h"

namespace NZELVYR20 {

/// A property that no instance keeps. It knows its declaration weakly.
class TInmemProperty : public TInmemPropertyBase {
 public:
  /// Without a value of its own.
  explicit TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration);

  /// With the value, under the checks of SetValue.
  TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration,
                 const TCIMValue& value);

  /// With the declaration and value of the other; a null value and the previous value stay behind.
  explicit TInmemProperty(const boost::shared_ptr<const ICIMProperty>& other);

  TInmemProperty(const TInmemProperty&) = delete;
  ~TInmemProperty() override;

  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;
  using TInmemPropertyBase::operator=;
  TInmemProperty& operator=(const TInmemProperty&) { return *this; }

 protected:
  const ICIMPropertyDecl& Declaration() const override { return *declaration_.lock(); }
  const TCIMValue* FindOwnValue() const override { return value_ ? &*value_ : nullptr; }
  void KeepOwnValue(const TCIMValue& value) override { value_ = value; }
  const TCIMValue* FindPreviousValue() const override { return previousValue_.get(); }
  void KeepPreviousValue(const TCIMValue& value) override;

 private:
  const boost::weak_ptr<const ICIMPropertyDecl> declaration_;
  std::optional<TCIMValue> value_;
  std::unique_ptr<const TCIMValue> previousValue_;
};

}  // namespace NZELVYR20

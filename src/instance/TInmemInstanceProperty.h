#pragma once

#include <cstddef>

#include "TInmemPropertyBase.h"

namespace NZELVYR20 {

class TInmemInstance;

/// One property of an instance, which keeps the values: a way to them that costs nothing to make.
/// It lives no longer than the instance; a THeldProperty is what others hold.
class TInmemInstanceProperty : public TInmemPropertyBase {
 public:
  TInmemInstanceProperty(TInmemInstance& instance, std::size_t position)
      : instance_(instance), position_(position) {}
  TInmemInstanceProperty(const TInmemInstanceProperty&) = delete;
  ~TInmemInstanceProperty() override = default;

  std::size_t GetPosition() const { return position_; }

  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;

  using TInmemPropertyBase::operator=;
  TInmemInstanceProperty& operator=(const TInmemInstanceProperty&) { return *this; }

 protected:
  TInmemInstance& GetInstance() const { return instance_; }

  const ICIMPropertyDecl& Declaration() const override;
  const TCIMValue* FindOwnValue() const override;
  void KeepOwnValue(const TCIMValue& value) override;
  const TCIMValue* FindPreviousValue() const override;
  void KeepPreviousValue(const TCIMValue& value) override;
  boost::shared_ptr<const void> Hold() override;

 private:
  TInmemInstance& instance_;
  const std::size_t position_;
};

}  // namespace NZELVYR20

#pragma once

#include <cstddef>
#include <cstdint>

#include "TInmemPropertyBase.h"

namespace NZELVYR20 {

class TInmemInstance;
class TReferenceTarget;

/// A property that stands in its instance and lives as long as that: whoever holds the one holds
/// the other. Its declaration is the one that the instance keeps for its place.
class TInmemInstanceProperty : public TInmemPropertyBase {
 public:
  /// Only TInmemProperties makes properties of instances.
  explicit TInmemInstanceProperty(std::size_t position)
      : position_(static_cast<std::uint32_t>(position)) {}
  TInmemInstanceProperty(const TInmemInstanceProperty&) = delete;
  ~TInmemInstanceProperty() override = default;

  std::uint32_t GetPosition() const { return position_; }

  void SetValue(const TCIMValue& value, TCIMContext context) override;
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;
  boost::shared_ptr<ICIMElement> FollowReference() const override;
  using TInmemPropertyBase::operator=;
  TInmemInstanceProperty& operator=(const TInmemInstanceProperty&) { return *this; }

 protected:
  const ICIMPropertyDecl& Declaration() const override;
  const TCIMValue* FindPreviousValue() const override;
  void KeepPreviousValue(const TCIMValue& value) override;

 private:
  TReferenceTarget* FindTarget() const;

  const std::uint32_t position_;
};

}  // namespace NZELVYR20

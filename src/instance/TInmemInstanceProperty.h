#pragma once

#include "TInmemPropertyBase.h"

namespace NZELVYR20 {

class TInmemInstance;
struct TReferenceTarget;

/// A property that stands in its instance and lives as long as that: whoever holds the one holds
/// the other. Its declaration is the one that the instance keeps for its place.
class TInmemInstanceProperty : public TInmemPropertyBase {
 public:
  TInmemInstanceProperty() = default;
  TInmemInstanceProperty(const TInmemInstanceProperty&) = delete;
  ~TInmemInstanceProperty() override = default;

  /// Tells the property in which instance it stands, before anything else is asked of it.
  void SetOwner(TInmemInstance& owner) { owner_ = &owner; }

  void SetValue(const TCIMValue& value, TCIMContext context) override;
  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;
  boost::shared_ptr<ICIMElement> FollowReference() const override;
  bool MayLeadTo(const TInmemInstance& instance) const override;
  using TInmemPropertyBase::operator=;
  TInmemInstanceProperty& operator=(const TInmemInstanceProperty&) { return *this; }

 private:
  TReferenceTarget* FindTarget() const;

  TInmemInstance* owner_ = nullptr;
};

}  // namespace NZELVYR20

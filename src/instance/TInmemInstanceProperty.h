#pragma once

#include <cstddef>
#include <cstdint>

#include "TInmemPropertyBase.h"

namespace NZELVYR20 {

class TInmemClass;
class TInmemInstance;
class TPropertyHolder;

/// A property that stands in its instance and lives as long as that. Whoever holds it does so by a
/// TPropertyHolder, which holds the instance. Its declaration is the one that the instance keeps
/// for its place.
class TInmemInstanceProperty : public TInmemPropertyBase {
 public:
  /// Only TInmemProperties makes properties of instances.
  explicit TInmemInstanceProperty(std::size_t position)
      : position_(static_cast<std::uint32_t>(position)) {}
  TInmemInstanceProperty(const TInmemInstanceProperty&) = delete;
  ~TInmemInstanceProperty() override = default;

  std::uint32_t GetPosition() const { return position_; }

  /// Whether there is a holder of it.
  bool IsHeld() const { return isHeld_; }

  boost::shared_ptr<const ICIMPropertyDecl> GetDeclaration(TCIMContext context) const override;
  /// The class of the reference that is its own value; empty where there is none, or one of another
  /// implementation.
  TInmemClass* FindReferencedClass() const;

  bool IsReference() const { return GetValue({}).IsReference(); }

  using TInmemPropertyBase::operator=;
  TInmemInstanceProperty& operator=(const TInmemInstanceProperty&) { return *this; }

 protected:
  const ICIMPropertyDecl& Declaration() const override;
  const TCIMValue* FindPreviousValue() const override;
  void KeepPreviousValue(const TCIMValue& value) override;
  void NoteChange(const TCIMValue& value) override;

 private:
  friend class TPropertyHolder;

  bool isHeld_ = false;
  const std::uint32_t position_;
};

}  // namespace NZELVYR20

#include "TInmemProperty.h"

namespace NZELVYR20 {

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration)
    : declaration_(declaration) {}

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration,
                               const TCIMValue& value)
    : TInmemProperty(declaration) {
  TInmemProperty::SetValue(value, {});
}

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMProperty>& other)
    : TInmemProperty(other->GetDeclaration({})) {
  const TCIMValue& value = other->GetValue({});
  if (!value.IsNull()) TInmemProperty::SetValue(value, {});
}

TInmemProperty::~TInmemProperty() = default;

boost::shared_ptr<const ICIMPropertyDecl> TInmemProperty::GetDeclaration(TCIMContext) const {
  return declaration_.lock();
}

void TInmemProperty::KeepPreviousValue(const TCIMValue& value) {
  previousValue_ = std::make_unique<const TCIMValue>(value);
}

}  // namespace NZELVYR20

#include "TInmemProperty.h"

#include <boost/assert.hpp>
#include <sstream>

#include "Failures.h"
#include "ICIMClass.h"

namespace NZELVYR20 {

namespace {

std::string GetName(const boost::shared_ptr<ICIMClass>& cimClass) {
  return cimClass ? cimClass->GetName(TCIMContext()) : std::string();
}

/// A reference that knows no class refers to nothing that could be of the declared one.
bool IsSubclass(const boost::shared_ptr<ICIMClass>& cimClass,
                const boost::shared_ptr<ICIMClass>& declared) {
  return cimClass && declared && cimClass->IsSubclassOf(declared, TCIMContext());
}

[[noreturn]] void FailTypeMismatch(const std::ostringstream& message) {
  LogDefinitionFailure(message.str());
  throw Failure::TypeMismatch();
}

}  // namespace

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration)
    : declaration_(declaration) {}

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMPropertyDecl>& declaration,
                               const TCIMValue& value)
    : TInmemProperty(declaration) {
  TInmemProperty::SetValue(value, TCIMContext());
}

TInmemProperty::TInmemProperty(const boost::shared_ptr<const ICIMProperty>& other)
    : TInmemProperty(other->GetDeclaration(TCIMContext())) {
  const TCIMValue& value = other->GetValue(TCIMContext());
  if (!value.IsNull()) TInmemProperty::SetValue(value, TCIMContext());
}

TInmemProperty::~TInmemProperty() = default;

TCIMValue::TCIMType TInmemProperty::GetType(TCIMContext) const {
  return declaration_.lock()->GetType(TCIMContext());
}

bool TInmemProperty::IsArray(TCIMContext) const {
  return declaration_.lock()->IsArray(TCIMContext());
}

bool TInmemProperty::IsDefaultValue(TCIMContext) const { return !value_; }

const TCIMValue& TInmemProperty::GetValue(TCIMContext) const {
  return value_ ? *value_ : declaration_.lock()->GetDefaultValue(TCIMContext());
}

void TInmemProperty::SetValue(const TCIMValue& value, TCIMContext) {
  Check(value, "Inmem: SetValue");
  value_ = std::make_unique<const TCIMValue>(value);
}

/// The type, and for a reference the class; array-ness is part of the type, and a null needs the
/// right type as well.
void TInmemProperty::Check(const TCIMValue& value, const char* operation) const {
  const auto declaration = declaration_.lock();
  const TCIMValue::TCIMType type = declaration->GetType(TCIMContext());
  std::ostringstream message;
  message.exceptions(std::ios::badbit);  // lack of memory must not pass for a shorter message
  if (type != value.GetType()) {
    message << operation << ": decl is type " << type << " but value is type " << value.GetType();
    FailTypeMismatch(message);
  }
  if (type != TCIMValue::TCIMType::kReference) return;
  const auto referenced = value.GetReferencedClass();
  const auto declared = declaration->GetDefaultValue(TCIMContext()).GetReferencedClass();
  if (IsSubclass(referenced, declared)) return;
  message << operation << ": decl references type " << GetName(declared) << " but value references "
          << GetName(referenced);
  FailTypeMismatch(message);
}

/// The same test as IsDefaultValue: what has no value of its own has it from the declaration.
bool TInmemProperty::GetPropagated(TCIMContext) const { return !value_; }

boost::shared_ptr<const ICIMPropertyDecl> TInmemProperty::GetDeclaration(TCIMContext) const {
  return declaration_.lock();
}

bool TInmemProperty::operator==(ICIMProperty& other) const {
  BOOST_ASSERT(value_);
  return other.GetDeclaration(TCIMContext()) == declaration_.lock() &&
         *value_ == other.GetValue(TCIMContext());
}

bool TInmemProperty::operator<(ICIMProperty& other) const {
  BOOST_ASSERT(value_);
  const auto declaration = declaration_.lock();
  const auto otherDeclaration = other.GetDeclaration(TCIMContext());
  if (declaration < otherDeclaration) return true;
  if (otherDeclaration < declaration) return false;
  return *value_ < other.GetValue(TCIMContext());
}

ICIMProperty& TInmemProperty::operator=(const ICIMProperty&) { return *this; }
TInmemProperty& TInmemProperty::operator=(const TInmemProperty&) { return *this; }

const TCIMValue& TInmemProperty::GetPrevValue() const {
  if (!IsPrevValueDifferent()) return GetValue(TCIMContext());
  return previousValue_ ? *previousValue_ : declaration_.lock()->GetDefaultValue(TCIMContext());
}

void TInmemProperty::SetPrevValue(const TCIMValue& value) {
  // Hosts know these messages without the usual beginning.
  if (!value.IsNull()) Check(value, "SetPrevValue");
  previousValue_ = std::make_unique<const TCIMValue>(value);
  hasPreviousValue_ = true;
}

void TInmemProperty::SetPrevValue() {
  previousValue_ = std::make_unique<const TCIMValue>();
  hasPreviousValue_ = true;
}

bool TInmemProperty::IsPrevValueDifferent() const { return hasPreviousValue_; }

}  // namespace NZELVYR20

#include "TInmemPropertyBase.h"

#include <boost/assert.hpp>
#include <sstream>

#include "Failures.h"
#include "ICIMClass.h"

namespace NZELVYR20 {

namespace {

std::string GetName(const boost::shared_ptr<ICIMClass>& cimClass) {
  return cimClass ? cimClass->GetName({}) : std::string();
}

/// A reference that knows no class refers to nothing that could be of the declared one.
bool IsSubclass(const boost::shared_ptr<ICIMClass>& cimClass,
                const boost::shared_ptr<ICIMClass>& declared) {
  return cimClass && declared && cimClass->IsSubclassOf(declared, {});
}

std::string TypeText(TCIMValue::TCIMType type) {
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // lack of memory must not pass for a shorter message
  text << type;
  return text.str();
}

}  // namespace

TCIMValue::TCIMType TInmemPropertyBase::GetType(TCIMContext) const {
  return Declaration().GetType({});
}

bool TInmemPropertyBase::IsArray(TCIMContext) const { return Declaration().IsArray({}); }

bool TInmemPropertyBase::IsDefaultValue(TCIMContext) const { return FindOwnValue() == nullptr; }

const TCIMValue& TInmemPropertyBase::GetValue(TCIMContext) const {
  const TCIMValue* const own = FindOwnValue();
  return own ? *own : Declaration().GetDefaultValue({});
}

void TInmemPropertyBase::SetValue(const TCIMValue& value, TCIMContext) {
  const auto held = Check(value, "Inmem: SetValue");
  KeepOwnValue(value);
}

/// The type, and for a reference the class; array-ness is part of the type, and a null needs the
/// right type as well. The class may be a host's, which lets go of anything while it is asked: what
/// is returned holds the property until the value is kept.
boost::shared_ptr<const void> TInmemPropertyBase::Check(const TCIMValue& value,
                                                        const char* operation) {
  const ICIMPropertyDecl& declaration = Declaration();
  const TCIMValue::TCIMType type = declaration.GetType({});
  if (type != value.GetType()) {
    LogDefinitionFailure(operation + std::string(": decl is type ") + TypeText(type) +
                         " but value is type " + TypeText(value.GetType()));
    throw Failure::TypeMismatch();
  }
  if (type != TCIMValue::TCIMType::kReference) return {};
  auto held = Hold();
  const auto referenced = value.GetReferencedClass();
  const auto declared = declaration.GetDefaultValue({}).GetReferencedClass();
  if (IsSubclass(referenced, declared)) return held;
  LogDefinitionFailure(operation + std::string(": decl references type ") + GetName(declared) +
                       " but value references " + GetName(referenced));
  throw Failure::TypeMismatch();
}

/// The same test as IsDefaultValue: what has no value of its own has it from the declaration.
bool TInmemPropertyBase::GetPropagated(TCIMContext) const { return FindOwnValue() == nullptr; }

/// Its own value, where a comparison comes to it: properties of different declarations need none.
const TCIMValue& TInmemPropertyBase::GetOwnValue() const {
  const TCIMValue* const own = FindOwnValue();
  BOOST_ASSERT(own);
  return *own;
}

bool TInmemPropertyBase::operator==(ICIMProperty& other) const {
  return other.GetDeclaration({}) == GetDeclaration({}) && GetOwnValue() == other.GetValue({});
}

bool TInmemPropertyBase::operator<(ICIMProperty& other) const {
  const auto declaration = GetDeclaration({});
  const auto otherDeclaration = other.GetDeclaration({});
  if (declaration < otherDeclaration) return true;
  if (otherDeclaration < declaration) return false;
  return GetOwnValue() < other.GetValue({});
}

ICIMProperty& TInmemPropertyBase::operator=(const ICIMProperty&) { return *this; }
TInmemPropertyBase& TInmemPropertyBase::operator=(const TInmemPropertyBase&) { return *this; }

const TCIMValue& TInmemPropertyBase::GetPrevValue() const {
  const TCIMValue* const previous = FindPreviousValue();
  return previous ? *previous : GetValue({});
}

void TInmemPropertyBase::SetPrevValue(const TCIMValue& value) {
  boost::shared_ptr<const void> held;
  // Hosts know these messages without the usual beginning.
  if (!value.IsNull()) held = Check(value, "SetPrevValue");
  KeepPreviousValue(value);
}

void TInmemPropertyBase::SetPrevValue() { KeepPreviousValue(TCIMValue()); }

bool TInmemPropertyBase::IsPrevValueDifferent() const { return FindPreviousValue() != nullptr; }

}  // namespace NZELVYR20

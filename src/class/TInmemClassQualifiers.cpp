#include "Failures.h"
#include "NormalizedNames.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"

namespace NZELVYR20 {

namespace {

bool IsKey(const TInmemPropertyDecl& declaration) { return declaration.GetQualifiers().IsKey(); }

}  // namespace

boost::shared_ptr<ICIMQualifier> TInmemClass::GetQualifier(const std::string& name,
                                                           TCIMContext) const {
  return qualifiers_.Find(name);
}

boost::shared_ptr<ICIMQualifier> TInmemClass::GetQualifier(const std::string& name, bool& found,
                                                           TCIMContext) const {
  return qualifiers_.Find(name, found);
}

void TInmemClass::EnumerateQualifiers(const TCIMQualifierCallback& callback, TCIMContext) const {
  qualifiers_.Enumerate(shared_from_this(), kStopsAndDiscards, callback);
}

bool TInmemClass::IsAssociation(TCIMContext) const {
  return qualifiers_.IsFlagSet(QualifierKey::kAssociation);
}

bool TInmemClass::IsAbstract(TCIMContext) const {
  return qualifiers_.IsFlagSet(QualifierKey::kAbstract);
}

void TInmemClass::EnumerateKeyNames(const TCIMKeyNameCallback& callback, TCIMContext) {
  const auto self = shared_from_this();
  TPropertyDecls::TCursor cursor(propertyDecls_);
  try {
    while (cursor.Next(IsKey)) {
      if (!callback(&cursor.GetCurrent()->GetName({}))) return;
    }
  } catch (const TVYRException& failure) {
    throw Failure::SameStatus(failure);
  }
}

void TInmemClass::Validate(TCIMContext) const {
  if (IsAbstract({})) return;
  // The cursor is gone before the logger is called, with which the class may go.
  if (TPropertyDecls::TCursor(propertyDecls_).Next(IsKey)) return;
  LogDefinitionFailure("Inmem: Class " + name_ + " has no keys");
  throw Failure::NoKeys();
}

// Class-level properties are not supported: these three answer as for a name that is unknown.

boost::shared_ptr<ICIMProperty> TInmemClass::GetProperty(const std::string& name,
                                                         TCIMContext) const {
  NormalizeName(name);
  throw Failure::NotFound();
}

void TInmemClass::SetPropertyValue(const std::string& name, const TCIMValue&, TCIMContext) {
  NormalizeName(name);
  throw Failure::NotFound();
}

void TInmemClass::EnumerateStaticProperties(const TCIMPropertyCallback&, TCIMContext) {}

}  // namespace NZELVYR20

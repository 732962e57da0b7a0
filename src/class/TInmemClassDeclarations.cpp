#include <boost/make_shared.hpp>
#include <utility>

#include "Failures.h"
#include "InMemory.h"
#include "Names.h"
#include "NormalizedNames.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TOneBlock.h"

namespace NZELVYR20 {

namespace {

constexpr const char* kOverride = "OVERRIDE";

/// Properties of these names may be declared again without OVERRIDE; the later declaration counts.
/// Hosts declare them class by class without knowing what is inherited.
bool IsRedeclarable(const std::string& name) {
  return HasPart(name, "PortType") || HasPart(name, "speedDuplex");
}

/// "Inmem: Attempt to override property Speed in class CIM_Port: " and the reason.
void LogOverrideFailure(const char* kind, const std::string& name, const std::string& className,
                        const char* reason) {
  LogDefinitionFailure(std::string("Inmem: Attempt to override ") + kind + " " + name +
                       " in class " + className + ": " + reason);
}

/// Of the repository's own declarations none is asked through the interface, where to have no such
/// qualifier, as most, costs a throw.
template <class TOwn, class TInterface>
bool HasOverride(const TInterface& declaration) {
  if (const auto* const own = FindInMemory<const TOwn>(&declaration)) {
    return own->GetQualifiers().FindKey(QualifierKey::kOverride) != nullptr;
  }
  return declaration.GetQualifier(kOverride, {}) != nullptr;
}

}  // namespace

bool TInmemClass::IsDeclaredHere(const boost::shared_ptr<ICIMClass>& declaringClass) const {
  return declaringClass.get() == this;
}

void TInmemClass::AddPropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) {
  Declare(std::move(declaration));
}

boost::shared_ptr<TInmemPropertyDecl> TInmemClass::Declare(
    boost::shared_ptr<ICIMPropertyDecl> declaration) {
  const auto self = shared_from_this();
  const std::string& name = declaration->GetName({});
  if (declaration->GetType({}) == TCIMValue::TCIMType::kReference && !IsAssociation({})) {
    LogValidationFailure("Inmem: Attempt to add reference property " + name +
                         " to non-association class " + name_);
    throw Failure::ReferenceOutsideAssociation();
  }
  const std::string key = NormalizeName(name);
  auto existing = propertyDecls_.Find(key);
  if (!IsPropertyDeclAccepted(*declaration, key, existing)) return existing;
  auto added = InMemory<TInmemPropertyDecl>(std::move(declaration));
  if (existing) {
    propertyDecls_.Put(key, added);
  } else if (!propertyDecls_.Insert(key, added)) {
    return propertyDecls_.Find(key);  // the logger was quicker
  }
  declaredProperties_.reset();
  return added;
}

/// Whether the declaration goes in, in place of the existing one where there is one. A refusal is
/// silent, or leaves a log line at most: hosts define the same classes again and again and rely on
/// that. Methods are stricter.
bool TInmemClass::IsPropertyDeclAccepted(const ICIMPropertyDecl& declaration,
                                         const std::string& key,
                                         const TPropertyDeclPointer& existing) const {
  try {
    if (HasOverride<TInmemPropertyDecl>(declaration)) {
      return IsPropertyOverrideAccepted(declaration, key, existing);
    }
  } catch (const TVYRException& failure) {
    if (!Failure::IsNotFound(failure)) return false;
  }
  return !existing || IsRedeclarable(declaration.GetName({}));
}

bool TInmemClass::IsPropertyOverrideAccepted(const ICIMPropertyDecl& declaration,
                                             const std::string& key,
                                             const TPropertyDeclPointer& existing) const {
  const std::string& name = declaration.GetName({});
  if (!existing) {
    if (HasPart(key, "porttype")) return true;
    LogOverrideFailure("property", name, name_, "property doesn't exist in base class");
    throw Failure::NotFound();  // and so it is added as if it did not override
  }
  if (existing->GetType({}) != declaration.GetType({})) {
    LogOverrideFailure("property", name, name_, "different types");
    throw Failure::TypeMismatch();
  }
  return !IsDeclaredHere(existing->GetClass({}));
}

void TInmemClass::RemovePropertyDecl(boost::shared_ptr<ICIMPropertyDecl> declaration) {
  const auto self = shared_from_this();
  const std::string key = NormalizeName(declaration->GetName({}));
  if (!propertyDecls_.Erase(key)) throw Failure::NotFound();
  declaredProperties_.reset();
}

boost::shared_ptr<ICIMPropertyDecl> TInmemClass::AllocatePropertyDecl(const std::string& name,
                                                                      const TCIMValue& defaultValue,
                                                                      TCIMContext) {
  return TOneBlock<TInmemPropertyDecl>::Make(0, weak_from_this(), name, defaultValue);
}

boost::shared_ptr<ICIMPropertyDecl> TInmemClass::GetPropertyDecl(const std::string& name,
                                                                 TCIMContext) const {
  auto declaration = propertyDecls_.Find(NormalizeName(name));
  if (!declaration) throw Failure::NotFound();
  return declaration;
}

void TInmemClass::EnumeratePropertyDecls(const TCIMPropertyDeclCallback& callback,
                                         TCIMContext) const {
  Enumerate(shared_from_this(), propertyDecls_, kStopsAndDiscards, callback);
}

TDeclaredPointer TInmemClass::GetDeclaredProperties() {
  if (declaredProperties_) return declaredProperties_;
  std::vector<TDeclaredProperties::TEntry> entries;
  propertyDecls_.ForEach([&](const std::string& key, const TPropertyDeclPointer& declaration) {
    entries.push_back({key, declaration});
  });
  TDeclaredPointer made(new TDeclaredProperties(std::move(entries)));
  if (!namespace_.expired()) declaredProperties_ = made;
  return made;
}

void TInmemClass::AddMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) {
  const auto self = shared_from_this();
  const std::string key = NormalizeName(declaration->GetName({}));
  const auto existing = methodDecls_.Find(key);
  CheckMethodDecl(*declaration, existing);
  const auto added = InMemory<TInmemMethodDecl>(std::move(declaration));
  existing ? methodDecls_.Put(key, added) : static_cast<void>(methodDecls_.Insert(key, added));
}

/// Returns when the declaration may go in, in place of the existing one where there is one. Unlike
/// a property's, a method's refusal reaches the caller, and one of an override logs twice.
void TInmemClass::CheckMethodDecl(const ICIMMethodDecl& declaration,
                                  const TMethodDeclPointer& existing) const {
  const std::string& name = declaration.GetName({});
  try {
    if (HasOverride<TInmemMethodDecl>(declaration)) {
      return CheckMethodOverride(declaration, existing);
    }
  } catch (const TVYRException& failure) {
    if (!Failure::IsNotFound(failure)) {
      LogDefinitionFailure("Inmem: Attempt define method " + name + " in class " + name_ +
                           "failed. Reason = " + failure.what());
      throw Failure::SameStatus(failure);
    }
  }
  if (!existing) return;
  LogDefinitionFailure("Inmem: Attempt to add method " + name + " to class " + name_ +
                       ": already exists");
  throw Failure::AlreadyDefined();
}

void TInmemClass::CheckMethodOverride(const ICIMMethodDecl& declaration,
                                      const TMethodDeclPointer& existing) const {
  const std::string& name = declaration.GetName({});
  if (!existing) {
    LogOverrideFailure("method", name, name_, "method doesn't exist in base class");
    throw Failure::NotFound();  // and so it is added as if it did not override
  }
  if (existing->GetReturnType({}) != declaration.GetReturnType({})) {
    LogOverrideFailure("method", name, name_, "different types");
    throw Failure::TypeMismatch();
  }
  if (IsDeclaredHere(existing->GetClass({}))) {
    LogOverrideFailure("method", name, name_, "original was defined in this class");
    throw Failure::AlreadyDefined();
  }
}

void TInmemClass::RemoveMethodDecl(boost::shared_ptr<ICIMMethodDecl> declaration) {
  const auto self = shared_from_this();
  const std::string key = NormalizeName(declaration->GetName({}));
  if (!methodDecls_.Erase(key)) throw Failure::NotFound();
}

boost::shared_ptr<ICIMMethodDecl> TInmemClass::AllocateMethodDecl(const std::string& name,
                                                                  TCIMValue::TCIMType returnType,
                                                                  TCIMContext) {
  return boost::make_shared<TInmemMethodDecl>(shared_from_this(), name, returnType);
}

/// A miss is an empty pointer here, where the look-up of a property throws.
boost::shared_ptr<ICIMMethodDecl> TInmemClass::GetMethodDecl(const std::string& name,
                                                             TCIMContext) const {
  return methodDecls_.Find(NormalizeName(name));
}

void TInmemClass::EnumerateMethodDecls(const TCIMMethodDeclCallback& callback, TCIMContext) const {
  Enumerate(shared_from_this(), methodDecls_, kStopsAndDiscards, callback);
}

}  // namespace NZELVYR20

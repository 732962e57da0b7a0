#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TModelTable.h"

namespace NZELVYR20 {

struct TModelClass;
struct TModelQualifierDecl;

/// What a namespace keeps.
struct TModelStore : ICIMNamespace {
  using ICIMNamespace::operator=;
  bool redefines = false;
  TPtr<TModelClass> root = {};
  TTable<std::string, TModelQualifierDecl> qualifierDecls = {};
  TTable<std::string, TModelClass> classes = {};

  template <class T>
  void Check(const TTable<std::string, T>& table, TText kind, TText name) const {
    if (!table.Find(name) || redefines) return;
    LogModel(3, "Inmem: TInmemNamespace: " + kind + " " + name + " already defined");
    throw TVYRException(16);
  }
};

/// A value that keeps its type when it lets go of the classes to which it refers.
struct TModelValue {
  TCIMValue now;
  TType type;

  TModelValue(const TCIMValue& given = {}) : now(given), type(given.GetType()) {}
  bool IsReference() const { return now.GetType().GetElementType() == TType::kReference; }
  void Release() {
    if (IsReference()) now = TCIMValue();
  }
};

struct TModelQualifierDecl : TModelCompared<ICIMQualifierDecl>,
                             boost::enable_shared_from_this<TModelQualifierDecl> {
  using ICIMQualifierDecl::operator=;
  boost::weak_ptr<TModelStore> space = {};
  std::string name = {};
  TModelValue value = {};
  EScope scope = kAny;
  EFlavor flavor = kNoFlavor;

  void Validate(TAny) override {}
  void AddToNamespace(TAny) override {
    const auto owner = space.lock();
    owner->Check(owner->qualifierDecls, "qualifier", name);
    owner->qualifierDecls.Put(Normalize(name), shared_from_this());
  }
  void RemoveQualifierDecl(TAny) override {}
  TText GetName(TAny) const override { return name; }
  TPtr<ICIMNamespace> GetNamespace(TAny) const override { return space.lock(); }
  TType GetType(TAny) const override { return value.type; }
  bool IsArray(TAny) const override { return value.type.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const override { return value.now; }
  void SetDefaultValue(const TCIMValue& given, TAny) override { value = given; }
  EScope GetScope(TAny) const override { return scope; }
  void SetFlavor(EFlavor bits, TAny) override { flavor = flavor | bits; }
  void UnsetFlavor(EFlavor bits, TAny) override { flavor = flavor - bits; }
  EFlavor GetFlavor(TAny) const override { return flavor; }

  TPtr<TModelQualifierDecl> Free() const {
    auto freed = boost::make_shared<TModelQualifierDecl>(*this);
    freed->value.Release();
    return freed;
  }
};

struct TModelQualifier : TModelCompared<ICIMQualifier>,
                         boost::enable_shared_from_this<TModelQualifier> {
  using ICIMQualifier::operator=;
  boost::weak_ptr<ICIMNamedElement> owner = {};
  TPtr<const ICIMQualifierDecl> declaration = {};
  TModelValue value = {};
  EFlavor flavor = {};
  bool isPropagated = false;

  void Validate(TAny) override {}
  void AddToClassOrProperty(TAny) const override {
    owner.lock()->AddQualifier(boost::const_pointer_cast<TModelQualifier>(shared_from_this()), {});
  }
  void RemoveFromClassOrProperty(TAny) override {}
  TText GetName(TAny) const override { return declaration->GetName({}); }
  TPtr<ICIMNamedElement> GetClassOrProperty(TAny) const override { return owner.lock(); }
  TType GetType(TAny) const override { return value.type; }
  bool IsArray(TAny) const override { return value.type.IsArray(); }
  TPtr<const ICIMQualifierDecl> GetDeclaration(TAny) const override { return declaration; }
  const TCIMValue& GetValue(TAny) const override { return value.now; }
  EFlavor GetFlavor(TAny) const override { return flavor; }
  bool GetPropagated(TAny) const override { return isPropagated; }
  void SetValue(const TCIMValue& given, TAny) override { Change(given, flavor); }
  void SetFlavor(EFlavor bits, TAny) override { Change(value.now, flavor | bits); }
  void UnsetFlavor(EFlavor bits, TAny) override { Change(value.now, flavor - bits); }
  void Change(const TCIMValue& given, EFlavor bits) {
    value = TCIMValue(given);
    flavor = bits;
    isPropagated = false;
  }

  bool IsSet() const { return !value.now.IsNull() && static_cast<bool>(value.now); }
  const TModelQualifierDecl& GetOwn() const {
    return static_cast<const TModelQualifierDecl&>(*declaration);
  }
  /// The same without the classes that it, or its declaration, refers to; empty where there are
  /// none.
  TPtr<TModelQualifier> Free() const {
    if (!value.IsReference() && !GetOwn().value.IsReference()) return {};
    auto freed = boost::make_shared<TModelQualifier>(*this);
    freed->value.Release();
    if (GetOwn().value.IsReference()) freed->declaration = GetOwn().Free();
    return freed;
  }
};

enum class EModelKind { kClass, kProperty, kMethod };

/// A class or a declaration: what has a name and qualifiers.
template <EModelKind kKind, class TInterface, class TSelf>
struct TModelNamed : TModelCompared<TInterface>, boost::enable_shared_from_this<TSelf> {
  using TInterface::operator=;
  std::string name = {};
  TTable<std::string, TModelQualifier> qualifiers = {};

  TText GetName(TAny) const override { return name; }
  TPtr<ICIMQualifier> AllocateQualifier(TPtr<const ICIMQualifierDecl> declared,
                                        const TCIMValue& value, TAny) override {
    return AllocateQualifier(declared, value, declared->GetFlavor({}), {});
  }
  TPtr<ICIMQualifier> AllocateQualifier(TPtr<const ICIMQualifierDecl> declared,
                                        const TCIMValue& value, EFlavor flavor, TAny) override {
    const auto made = boost::make_shared<TModelQualifier>();
    made->owner = this->shared_from_this();
    made->declaration = declared;
    made->Change(value, flavor);
    return made;
  }
  void AddQualifier(TPtr<ICIMQualifier> added, TAny) override {
    const auto present = qualifiers.Find(added->GetName({}));
    if (present && (present->flavor & 1U) == 0) {
      const bool isSame = kKind == EModelKind::kClass || present->flavor == added->GetFlavor({});
      if (present->value.now != added->GetValue({}) || !isSame) throw TVYRException(28);
      return;
    }
    qualifiers.Put(Normalize(added->GetName({})),
                   boost::static_pointer_cast<TModelQualifier>(added));
  }
  TPtr<ICIMQualifier> GetQualifier(TText named, TAny) const override {
    const auto found = qualifiers.Find(named);
    return kKind == EModelKind::kClass ? found : Demand(found);
  }
  TPtr<ICIMQualifier> GetQualifier(TText named, bool& found, TAny) const override {
    if (kKind == EModelKind::kMethod) throw TVYRException(1);
    const auto qualifier = qualifiers.Find(named);
    found = qualifier != nullptr;
    return qualifier;
  }
  void EnumerateQualifiers(const TCIMQualifierCallback& callback, TAny) const override {
    qualifiers.Walk(kKind == EModelKind::kClass, kKind == EModelKind::kMethod, callback);
  }

  bool IsSet(TText qualifier) const {
    const auto found = qualifiers.Find(qualifier);
    return found && found->IsSet();
  }
  void FreeQualifiers() {
    for (auto& entry : qualifiers.entries) {
      if (auto freed = entry.second.element->Free()) entry.second.element.swap(freed);
    }
  }
};

/// The declaration of a property or of a method.
template <EModelKind kKind, class TInterface, class TSelf>
struct TModelDecl : TModelNamed<kKind, TInterface, TSelf> {
  using TInterface::operator=;
  boost::weak_ptr<ICIMClass> owner = {};
  TModelValue value = {};  ///< of a property the default, of a method a null of its type
  int uses = 0;            ///< by classes whose namespaces live, and by instances
  int remains = 0;         ///< in classes whose namespaces are gone

  void Validate(TAny) override {}
  TPtr<ICIMClass> GetClass(TAny) const override { return owner.lock(); }
};

/// What a declaration refers to is let go of when the last use goes, if it remains anywhere.
template <class TDeclaration>
struct TModelUse {
  const TPtr<TDeclaration> declaration;
  int& count;

  TModelUse(const TPtr<TDeclaration>& used, bool isLiving)
      : declaration(used), count(isLiving ? used->uses : used->remains) {
    ++count;
  }
  TModelUse(const TModelUse&) = delete;
  ~TModelUse() {
    if (--count > 0 || &count != &declaration->uses || declaration->remains == 0) return;
    declaration->FreeQualifiers();
    declaration->value.Release();
  }
};

template <class TDeclaration>
TPtr<void> Use(const TPtr<TDeclaration>& used, bool isLiving) {
  return boost::make_shared<TModelUse<TDeclaration>>(used, isLiving);
}

struct TModelPropertyDecl
    : TModelDecl<EModelKind::kProperty, ICIMPropertyDecl, TModelPropertyDecl> {
  using ICIMPropertyDecl::operator=;
  void AddToClass(TAny) override { owner.lock()->AddPropertyDecl(shared_from_this()); }
  void RemoveFromClass(TAny) override {}
  TType GetType(TAny) const override { return value.type; }
  bool IsArray(TAny) const override { return value.type.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const override { return value.now; }
  void SetDefaultValue(const TCIMValue& given, TAny) override { value = TCIMValue(given); }
};

struct TModelMethodDecl : TModelDecl<EModelKind::kMethod, ICIMMethodDecl, TModelMethodDecl> {
  using ICIMMethodDecl::operator=;
  void AddToClass(TAny) override { owner.lock()->AddMethodDecl(shared_from_this()); }
  TType GetReturnType(TAny) const override { return value.type; }
  TPtr<ICIMParameterDecl> AllocateParameterDecl(TText, TType, TAny) override { return {}; }
  TPtr<ICIMParameterDecl> GetParameterDecl(TText, TAny) const override { return {}; }
  void EnumerateParameterDecls(TCIMParameterDeclCallback&, TAny) override {}
};

}  // namespace NZELVYR20

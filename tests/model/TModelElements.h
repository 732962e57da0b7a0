#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TModelTable.h"

namespace NZELVYR20 {

struct TModelClass;
struct TModelQualifierDecl;

/// What a namespace keeps.
struct TModelStore : ICIMNamespace {
  bool redefines = false;
  TPtr<TModelClass> root = {};
  TTable<std::string, TModelQualifierDecl> qualifierDecls = {};
  TTable<std::string, TModelClass> classes = {};

  template <class T>
  void Check(const TTable<std::string, T>& table, TText kind, TText name) const {
    if (!table.Find(name) || redefines) return;
    Refuse(16, 3, "TInmemNamespace: " + kind + " " + name + " already defined");
  }
};

struct TModelQualifierDecl : TModelOf<ICIMQualifierDecl>,
                             boost::enable_shared_from_this<TModelQualifierDecl> {
  boost::weak_ptr<TModelStore> space = {};
  std::string name = {};
  TCIMValue value = {};
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
  TType GetType(TAny) const override { return value.GetType(); }
  bool IsArray(TAny) const override { return value.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const override { return value; }
  void SetDefaultValue(const TCIMValue& given, TAny) override { value = TCIMValue(given); }
  EScope GetScope(TAny) const override { return scope; }
  void SetFlavor(EFlavor bits, TAny) override { flavor = flavor | bits; }
  void UnsetFlavor(EFlavor bits, TAny) override { flavor = flavor - bits; }
  EFlavor GetFlavor(TAny) const override { return flavor; }
};

struct TModelQualifier : TModelOf<ICIMQualifier>, boost::enable_shared_from_this<TModelQualifier> {
  boost::weak_ptr<ICIMNamedElement> owner = {};
  TPtr<const ICIMQualifierDecl> declaration = {};
  TCIMValue value = {};
  EFlavor flavor = {};
  bool isPropagated = false;

  void Validate(TAny) override {}
  void AddToClassOrProperty(TAny) const override {
    owner.lock()->AddQualifier(boost::const_pointer_cast<TModelQualifier>(shared_from_this()), {});
  }
  void RemoveFromClassOrProperty(TAny) override {}
  TText GetName(TAny) const override { return declaration->GetName({}); }
  TPtr<ICIMNamedElement> GetClassOrProperty(TAny) const override { return owner.lock(); }
  TType GetType(TAny) const override { return value.GetType(); }
  bool IsArray(TAny) const override { return value.IsArray(); }
  TPtr<const ICIMQualifierDecl> GetDeclaration(TAny) const override { return declaration; }
  const TCIMValue& GetValue(TAny) const override { return value; }
  EFlavor GetFlavor(TAny) const override { return flavor; }
  bool GetPropagated(TAny) const override { return isPropagated; }
  void SetValue(const TCIMValue& given, TAny) override { Change(given, flavor); }
  void SetFlavor(EFlavor bits, TAny) override { Change(value, flavor | bits); }
  void UnsetFlavor(EFlavor bits, TAny) override { Change(value, flavor - bits); }
  void Change(const TCIMValue& given, EFlavor bits) {
    value = TCIMValue(given);
    flavor = bits;
    isPropagated = false;
  }
};

enum class EModelKind { kClass, kProperty, kMethod, kParameter };

/// A class or a declaration: what has a name and qualifiers.
template <EModelKind kKind, class TInterface, class TSelf>
struct TModelNamed : TModelOf<TInterface>, boost::enable_shared_from_this<TSelf> {
  static constexpr bool kIsClass = kKind == EModelKind::kClass;
  static constexpr bool kIsOfMethod =
      kKind == EModelKind::kMethod || kKind == EModelKind::kParameter;

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
      const bool isSame = kIsClass || present->flavor == added->GetFlavor({});
      if (present->value != added->GetValue({}) || !isSame) throw TVYRException(28);
      return;
    }
    qualifiers.Put(Normalize(added->GetName({})),
                   boost::static_pointer_cast<TModelQualifier>(added));
  }
  TPtr<ICIMQualifier> GetQualifier(TText named, TAny) const override {
    const auto found = qualifiers.Find(named);
    return kIsClass || kKind == EModelKind::kParameter ? found : Demand(found);
  }
  TPtr<ICIMQualifier> GetQualifier(TText named, bool& found, TAny) const override {
    if (kIsOfMethod) throw TVYRException(1);
    const auto qualifier = qualifiers.Find(named);
    found = qualifier != nullptr;
    return qualifier;
  }
  void EnumerateQualifiers(const TCIMQualifierCallback& callback, TAny) const override {
    qualifiers.Walk(kIsClass, kIsOfMethod, callback);
  }
  bool IsSet(TText qualifier) const {
    const auto found = qualifiers.Find(qualifier);
    return found && !found->value.IsNull() && static_cast<bool>(found->value);
  }
};

/// The declaration of a property, a method or a parameter.
template <EModelKind kKind, class TInterface, class TSelf, class TOwner>
struct TModelDecl : TModelNamed<kKind, TInterface, TSelf> {
  boost::weak_ptr<TOwner> owner = {};
  TCIMValue value = {};  ///< of a property the default, of the others a null of their type

  void Validate(TAny) override {}
  static TPtr<TSelf> Make(const TPtr<TOwner>& of, TText given, const TCIMValue& ofIt) {
    auto made = boost::make_shared<TSelf>();
    made->owner = of;
    made->name = given;
    made->value = ofIt;
    return made;
  }
};

struct TModelPropertyDecl
    : TModelDecl<EModelKind::kProperty, ICIMPropertyDecl, TModelPropertyDecl, ICIMClass> {
  TPtr<ICIMClass> GetClass(TAny) const override { return owner.lock(); }
  void AddToClass(TAny) override { owner.lock()->AddPropertyDecl(shared_from_this()); }
  void RemoveFromClass(TAny) override {}
  TType GetType(TAny) const override { return value.GetType(); }
  bool IsArray(TAny) const override { return value.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const override { return value; }
  void SetDefaultValue(const TCIMValue& given, TAny) override { value = TCIMValue(given); }
};

struct TModelMethodDecl;

struct TModelParameterDecl
    : TModelDecl<EModelKind::kParameter, ICIMParameterDecl, TModelParameterDecl, TModelMethodDecl> {
  void AddToMethod(TAny) override;
  TPtr<ICIMMethodDecl> GetMethodDecl(TAny) const override;
  TType GetType(TAny) const override { return value.GetType(); }
  bool IsArray(TAny) const override { return false; }
};

struct TModelMethodDecl
    : TModelDecl<EModelKind::kMethod, ICIMMethodDecl, TModelMethodDecl, ICIMClass> {
  TTable<std::string, TModelParameterDecl> parameters = {};

  TPtr<ICIMClass> GetClass(TAny) const override { return owner.lock(); }
  void AddToClass(TAny) override { owner.lock()->AddMethodDecl(shared_from_this()); }
  TType GetReturnType(TAny) const override { return value.GetType(); }
  TPtr<ICIMParameterDecl> AllocateParameterDecl(TText given, TType type, TAny) override {
    return TModelParameterDecl::Make(shared_from_this(), given, TCIMValue::Null(type));
  }
  TPtr<ICIMParameterDecl> GetParameterDecl(TText given, TAny) const override {
    return Demand(parameters.Find(given));
  }
  void EnumerateParameterDecls(TCIMParameterDeclCallback& callback, TAny) override {
    parameters.Walk(false, true, callback);
  }
};

inline TPtr<ICIMMethodDecl> TModelParameterDecl::GetMethodDecl(TAny) const { return owner.lock(); }

inline void TModelParameterDecl::AddToMethod(TAny) {
  const auto method = owner.lock();
  if (method->parameters.Insert(Normalize(name), shared_from_this())) return;
  Refuse(16, 3,
         "Attempt to add property " + name + " to method " + method->name + ": already exists");
}

}  // namespace NZELVYR20

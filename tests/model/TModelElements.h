#pragma once

#include <boost/enable_shared_from_this.hpp>
#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>
#include <cctype>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICoreLogger.h"
#include "TCIMReference.h"
#include "TRootObject.h"
#include "TShown.h"
#include "TVYRException.h"

/// @file
/// The model: what the contract says about a namespace, as plain as can be, behind the very
/// interfaces, so that one driver can speak to both sides. Who holds whom is what the contract
/// says, too: what goes when is compared.
namespace NZELVYR20 {

using TAny = TCIMContext;  ///< the call context, which nobody reads
using TText = const std::string&;
using EFlavor = ICIMQualifierDecl::EFlavor;

inline void LogModel(int level, TText text) { TRootObject::GetCoreLogger()->Log(level, text); }

inline std::string Normalize(TText name) {
  std::string folded;
  for (const unsigned char c : name) {
    const bool isAlpha = c == '_' || (c < 128 && isalpha(c) != 0);
    if (!isAlpha && (folded.empty() || c > 127 || isdigit(c) == 0)) {
      LogModel(0, "Inmem: CIM name '" + name + "' is invalid");
      throw TVYRException(25);
    }
    folded += static_cast<char>(tolower(c));
  }
  return folded;
}

/// What compares by its name and is never assigned.
template <class TInterface>
struct TModelCompared : TInterface {
  TModelCompared() = default;
  TModelCompared(const TModelCompared&) : TInterface() {}

  int Compare(TInterface& other) const {
    const std::string own = Normalize(this->GetName({}));
    return own.compare(Normalize(other.GetName({})));
  }
  bool operator==(TInterface& other) const override { return Compare(other) == 0; }
  bool operator<(TInterface& other) const override { return Compare(other) < 0; }
  TInterface& operator=(const TInterface&) override { return *this; }
};

template <class T>
T Demand(const T& found) {
  if (!found) throw TVYRException(15);
  return found;
}

/// Runs the call; status 15 means that what it looked at does not count.
template <class TCallback>
bool Try(const TCallback& call) {
  try {
    return call();
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != 15) throw TVYRException(failure.GetStatusCode());
    return false;
  }
}

/// Shared elements in the order of their keys.
template <class TKey, class T>
struct TTable {
  struct TEntry {
    TPtr<T> element;
    unsigned serial = 0;  ///< tells a walk what came after its start
    TPtr<void> use = {};  ///< goes when the element is taken out
  };
  std::map<TKey, TEntry> entries = {};
  unsigned serial = 0;

  TTable() = default;
  TTable(const TTable&) = default;
  ~TTable() {
    for (auto& entry : entries) entry.second.use.reset();
  }
  TPtr<T> FindKey(const TKey& key) const {
    const auto found = entries.find(key);
    return found == entries.end() ? TPtr<T>() : found->second.element;
  }
  TPtr<T> Find(TText name) const { return FindKey(Normalize(name)); }
  bool Insert(const TKey& key, const TPtr<T>& element, const TPtr<void>& use = {}) {
    return entries.insert({key, {element, ++serial, use}}).second;
  }
  /// What takes another's place is visited in its turn.
  void Put(const TKey& key, TPtr<T> element, TPtr<void> use = {}) {
    if (Insert(key, element, use)) return;
    entries[key].element.swap(element);
    entries[key].use.swap(use);
  }
  void Append(const TPtr<T>& element) { Insert(static_cast<TKey>(serial + 1), element); }
  bool Erase(const TKey& key) { return !entries.extract(key).empty(); }
  void Remove(TText name) {
    if (!Erase(Normalize(name))) throw TVYRException(15);
  }
  void EraseFirst(const std::function<bool(const T&)>& matches) {
    for (auto at = entries.begin(); at != entries.end(); ++at) {
      if (matches(*at->second.element)) return void(entries.extract(at));
    }
  }
  void Clear() { std::exchange(entries, {}); }

  /// Visits what is there from the start of the walk until its turn.
  template <class TCallback>
  void Walk(bool stops, bool passes, const TCallback& call) const {
    const unsigned last = serial;
    for (auto at = entries.begin(); at != entries.end();) {
      const TKey key = at->first;
      const TEntry entry = at->second;
      try {
        if (entry.serial <= last && !call(entry.element) && stops) return;
      } catch (...) {
        if (passes) throw;
      }
      at = entries.upper_bound(key);
    }
  }
};

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

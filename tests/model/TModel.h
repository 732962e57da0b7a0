#pragma once

#include <boost/shared_ptr.hpp>
#include <cctype>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "ICoreLogger.h"
#include "TCIMContext.h"
#include "TCIMReference.h"
#include "TCIMValue.h"
#include "TRootObject.h"
#include "TVYRException.h"

/// @file
/// The model: what the contract says about a namespace, as plain as can be. Its elements bear the
/// operations of the interfaces under their names, so that one driver can speak to both sides.
/// Values and paths are the host's; a class in a value is the plug-in's, which a model class knows
/// as its handle. All elements live as long as their namespace.
namespace NZELVYR20 {

using TAny = TCIMContext;  ///< the call context, which nobody reads
using TText = const std::string&;
using TType = TCIMValue::TCIMType;
template <class T>
using TTable = std::map<std::string, T*>;
template <class T>
using TCall = std::function<bool(T*)>;

struct TModelClass;
struct TModelDecl;
struct TModelInstance;
struct TModelNamed;
struct TModelProperty;

inline void LogModel(int level, TText text) { TRootObject::GetCoreLogger()->Log(level, text); }

inline bool Contains(TText text, TText part) { return text.find(part) != std::string::npos; }

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

template <class T>
T* Find(const TTable<T>& table, TText name) {
  const auto found = table.find(Normalize(name));
  return found == table.end() ? nullptr : found->second;
}

template <class T>
T* Demand(T* found) {
  if (found == nullptr) throw TVYRException(15);
  return found;
}

/// Visits what is there when the walk begins and still there when its turn comes.
template <class T, class TCallback>
void Walk(const TTable<T>& table, bool stops, bool passes, const TCallback& call) {
  const TTable<T> before(table);
  for (const auto& entry : before) {
    const auto now = table.find(entry.first);
    if (now == table.end() || now->second != entry.second) continue;
    try {
      if (!call(entry.second) && stops) return;
    } catch (...) {
      if (passes) throw;
    }
  }
}

/// Runs the call; status 15 means that what it looked at does not count.
template <class TCallback>
bool Try(const TCallback& call) {
  try {
    return call();
  } catch (const TVYRException& failure) {
    if (failure.GetStatusCode() != 15) throw;
    return false;
  }
}

/// A qualifier, or the declaration of one.
struct TModelQualifier {
  using EFlavor = ICIMQualifierDecl::EFlavor;
  TModelQualifier* declaration;
  std::string name;
  TCIMValue value;
  EFlavor flavor;
  TModelNamed* owner = nullptr;
  struct TModelNamespace* space = nullptr;
  bool isPropagated = false;

  TText GetName(TAny) const { return name; }
  const TCIMValue& GetValue(TAny) const { return value; }
  const TCIMValue& GetDefaultValue(TAny) const { return value; }
  EFlavor GetFlavor(TAny) const { return flavor; }
  bool GetPropagated(TAny) const { return isPropagated; }
  TModelQualifier* GetDeclaration(TAny) const { return declaration; }
  void SetDefaultValue(const TCIMValue& given, TAny) { value = given; }
  void SetValue(const TCIMValue& given, TAny) { Change(given, flavor); }
  void SetFlavor(EFlavor bits, TAny) { Change(value, flavor | bits); }
  void UnsetFlavor(EFlavor bits, TAny) { Change(value, flavor - bits); }
  void Change(const TCIMValue& given, EFlavor bits) {
    value = TCIMValue(given);
    flavor = bits;
    isPropagated = false;
  }
  bool IsSet() const { return !value.IsNull() && static_cast<bool>(value); }
  void AddToClassOrProperty(TAny);
  void AddToNamespace(TAny);
};

struct TModelNamespace {
  bool allowsRedefinition;
  std::vector<std::shared_ptr<void>> everything;
  TTable<TModelQualifier> qualifierDecls;
  TTable<TModelClass> classes;
  TModelClass* root = nullptr;
  std::map<const ICIMClass*, TModelClass*> byHandle;

  explicit TModelNamespace(bool redefinition) : allowsRedefinition(redefinition) {
    root = AllocateClass("<root>", nullptr, {});
  }
  template <class T, class... TArguments>
  T* New(TArguments&&... arguments) {
    const auto made = std::make_shared<T>(T{std::forward<TArguments>(arguments)...});
    everything.push_back(made);
    return made.get();
  }
  TModelClass* AllocateClass(TText name, TModelClass* super, TAny);
  TModelClass* GetClass(TText name, TAny) {
    return name.empty() || name == "<root>" ? root : Demand(Find(classes, name));
  }
  /// The class that restricts a query; none for an empty name.
  TModelClass* GetFilter(TText name) { return name.empty() ? nullptr : GetClass(name, {}); }
  void EnumerateRootClasses(const TCall<TModelClass>& callback, TAny);
  TModelQualifier* AllocateQualifierDecl(TText name, const TCIMValue& value,
                                         ICIMQualifierDecl::EScope,
                                         ICIMQualifierDecl::EFlavor flavor, TAny) {
    return New<TModelQualifier>(nullptr, name, value, flavor, nullptr, this);
  }
  TModelQualifier* GetQualifierDecl(TText name, TAny) { return Find(qualifierDecls, name); }
  void EnumerateQualifierDecls(const TCall<TModelQualifier>& callback, TAny) {
    Walk(qualifierDecls, false, false, callback);
  }
  TModelInstance* GetInstance(const TCIMReference& path, TAny);
  void ClearInstances();
};

enum class EModelKind { kClass, kProperty, kMethod, kParameter };

/// A class or a declaration: what has a name and qualifiers.
struct TModelNamed {
  using EFlavor = ICIMQualifierDecl::EFlavor;
  EModelKind kind;
  TModelNamespace* space;
  std::string name;
  TTable<TModelQualifier> qualifiers;

  TText GetName(TAny) const { return name; }
  bool IsOfMethod() const { return kind == EModelKind::kMethod || kind == EModelKind::kParameter; }
  TModelQualifier* AllocateQualifier(TModelQualifier* declared, const TCIMValue& value, TAny) {
    return AllocateQualifier(declared, value, declared->flavor, {});
  }
  TModelQualifier* AllocateQualifier(TModelQualifier* declared, const TCIMValue& value,
                                     EFlavor flavor, TAny) {
    return space->New<TModelQualifier>(declared, declared->name, value, flavor, this);
  }
  void AddQualifier(TModelQualifier* added) {
    TModelQualifier* present = Find(qualifiers, added->name);
    if (present != nullptr && (present->flavor & 1U) == 0) {
      const bool isSame = kind == EModelKind::kClass || present->flavor == added->flavor;
      if (present->value != added->value || !isSame) throw TVYRException(28);
      return;
    }
    qualifiers[Normalize(added->name)] = added;
  }
  TModelQualifier* GetQualifier(TText named, TAny) const {
    const bool demands = kind == EModelKind::kProperty || kind == EModelKind::kMethod;
    TModelQualifier* found = Find(qualifiers, named);
    return demands ? Demand(found) : found;
  }
  TModelQualifier* GetQualifier(TText named, bool& found, TAny) const {
    if (IsOfMethod()) throw TVYRException(1);
    TModelQualifier* qualifier = Find(qualifiers, named);
    found = qualifier != nullptr;
    return qualifier;
  }
  void EnumerateQualifiers(const TCall<TModelQualifier>& callback, TAny) const {
    Walk(qualifiers, kind == EModelKind::kClass, IsOfMethod(), callback);
  }
  bool IsSet(TText qualifier) const {
    TModelQualifier* found = Find(qualifiers, qualifier);
    return found != nullptr && found->IsSet();
  }
};

/// The declaration of a property, of a method or of a parameter.
struct TModelDecl : TModelNamed {
  TModelClass* owner;
  TModelDecl* method;
  TCIMValue value;  ///< of a property the default; of others a null of their type
  TTable<TModelDecl> parameters = {};

  TModelClass* GetClass(TAny) const { return owner; }
  TModelDecl* GetMethodDecl(TAny) const { return method; }
  TType GetType(TAny) const { return value.GetType(); }
  TType GetReturnType(TAny) const { return value.GetType(); }
  bool IsArray(TAny) const { return kind == EModelKind::kProperty && value.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const { return value; }
  void SetDefaultValue(const TCIMValue& given, TAny) { value = TCIMValue(given); }
  void AddToClass(TAny);
  TModelDecl* AllocateParameterDecl(TText named, TType type, TAny) {
    return space->New<TModelDecl>(TModelNamed{EModelKind::kParameter, space, named, {}}, owner,
                                  this, TCIMValue::Null(type));
  }
  TModelDecl* GetParameterDecl(TText named, TAny) const { return Demand(Find(parameters, named)); }
  void EnumerateParameterDecls(const TCall<TModelDecl>& callback, TAny) {
    Walk(parameters, false, true, callback);
  }
  void AddToMethod(TAny) {
    if (Find(method->parameters, name) != nullptr) {
      LogModel(3, "Inmem: Attempt to add property " + name + " to method " + method->name +
                      ": already exists");
      throw TVYRException(16);
    }
    method->parameters[Normalize(name)] = this;
  }
};

struct TModelClass : TModelNamed {
  TModelClass* super;
  boost::shared_ptr<ICIMClass> handle = {};
  TTable<TModelDecl> properties = {}, methods = {};
  TTable<TModelInstance> instances = {};
  std::vector<TModelClass*> subClasses = {}, associations = {};
  bool isInNamespace = false;

  void Inherit(bool isFresh);
  void LinkAssociation(bool isAdded);
  bool IsReferredBy(const TModelClass& association, TText role) const;

  void AddToNamespace(TAny);
  void RemoveFromNamespace(TAny);
  void Validate(TAny) const;
  bool IsAssociation(TAny) const { return IsSet("ASSOCIATION"); }
  bool IsAbstract(TAny) const { return IsSet("ABSTRACT"); }
  bool IsRootClass(TAny) const { return super == nullptr; }
  TModelClass* GetSuperClass(TAny) const { return super; }
  bool IsSubclassOf(const TModelClass* other, TAny) const {
    const bool isLast = IsRootClass({}) || super->IsRootClass({});
    return name == other->name || (!isLast && super->IsSubclassOf(other, {}));
  }
  void EnumerateSubClasses(const TCall<TModelClass>& callback, bool deep, TAny);
  void EnumerateAssociationClasses(const TCall<TModelClass>& callback, TText resultClass,
                                   TText role, TAny);
  void EnumerateKeyNames(const std::function<bool(const std::string*)>& callback, TAny) const;
  TModelDecl* AllocatePropertyDecl(TText given, const TCIMValue& value, TAny) {
    return space->New<TModelDecl>(TModelNamed{EModelKind::kProperty, space, given, {}}, this,
                                  nullptr, value);
  }
  TModelDecl* AllocateMethodDecl(TText given, TType type, TAny) {
    return space->New<TModelDecl>(TModelNamed{EModelKind::kMethod, space, given, {}}, this, nullptr,
                                  TCIMValue::Null(type));
  }
  TModelDecl* GetPropertyDecl(TText given, TAny) const { return Demand(Find(properties, given)); }
  TModelDecl* GetMethodDecl(TText given, TAny) const { return Find(methods, given); }
  void EnumeratePropertyDecls(const TCall<TModelDecl>& callback, TAny) const {
    Walk(properties, true, false, callback);
  }
  void EnumerateMethodDecls(const TCall<TModelDecl>& callback, TAny) const {
    Walk(methods, true, false, callback);
  }
  TModelProperty* GetProperty(TText given, TAny) const {
    return Demand(Find(TTable<TModelProperty>(), given));
  }
  TModelInstance* AllocateInstance(TAny);
  void EnumerateInstances(const TCall<TModelInstance>& callback, bool deep, TAny);
  void AddPropertyDecl(TModelDecl* added);
  void RemovePropertyDecl(TModelDecl* removed) { Remove(properties, removed); }
  void AddMethodDecl(TModelDecl* added);
  void RemoveMethodDecl(TModelDecl* removed) { Remove(methods, removed); }
  static void Remove(TTable<TModelDecl>& table, TModelDecl* removed) {
    Demand(Find(table, removed->name));
    table.erase(Normalize(removed->name));
  }
};

struct TModelProperty {
  TModelDecl* declaration;
  std::unique_ptr<TCIMValue> value = {}, previous = {};

  TModelDecl* GetDeclaration(TAny) const { return declaration; }
  TType GetType(TAny) const { return declaration->GetType({}); }
  bool IsArray(TAny) const { return declaration->IsArray({}); }
  bool IsDefaultValue(TAny) const { return !value; }
  bool GetPropagated(TAny) const { return !value; }
  const TCIMValue& GetValue(TAny) const { return value ? *value : declaration->value; }
  const TCIMValue& GetPrevValue() const { return previous ? *previous : GetValue({}); }
  bool IsPrevValueDifferent() const { return previous != nullptr; }
  void SetValue(const TCIMValue& given, TAny) {
    Check(given, "Inmem: SetValue");
    value = std::make_unique<TCIMValue>(given);
  }
  void SetPrevValue(const TCIMValue& given) {
    if (!given.IsNull()) Check(given, "SetPrevValue");
    previous = std::make_unique<TCIMValue>(given);
  }
  void SetPrevValue() { previous = std::make_unique<TCIMValue>(); }
  void Check(const TCIMValue& given, TText operation) const;
  bool operator==(const TModelProperty& other) const {
    return declaration == other.declaration && *value == other.GetValue({});
  }
  std::string ToString() const { return Show(GetValue({})); }
  std::string PrevValueToString() const { return Show(GetPrevValue()); }
  std::vector<std::string> ToStringVector() const;
  TCIMValue Read(TText qualifier, TType type) const;
  std::string ShowByBase(const TCIMValue& shown) const;
  std::string Show(const TCIMValue& shown) const;
};

struct TModelInstance {
  TModelClass* cimClass;
  TTable<TModelProperty> properties = {};

  void Initialize();
  void Validate(TAny) const;
  void AddToNamespace(TAny);
  void Delete(TAny) { cimClass->instances.erase(GetReference({}).GetPath()); }
  TCIMReference GetReference(TAny) const;
  TModelClass* GetClass(TAny) const { return cimClass; }
  TModelProperty* GetProperty(TText name, TAny) const;
  void SetPropertyValue(TText name, const TCIMValue& value, TAny);
  void EnumerateProperties(const TCall<TModelProperty>& callback, TAny) {
    Walk(properties, false, true, callback);
  }
  void EnumerateAssociationInstances(const TCall<TModelInstance>& callback, TText resultClass,
                                     TText role, TAny);
  void EnumerateAssociatedInstances(const TCall<TModelInstance>& callback, TText assocClass,
                                    TText resultClass, TText role, TText resultRole, TAny);
  TModelProperty* Derive(TText name, const TCIMValue& value) const;
  TModelInstance* Resolve(const TCIMValue& reference) const;
  bool operator==(const TModelInstance& other) const { return cimClass == other.cimClass; }
};

}  // namespace NZELVYR20

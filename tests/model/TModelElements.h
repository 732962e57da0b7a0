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
#include "ICIMQualifierDecl.h"
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
struct TModelProperty;
struct TModelQualifier;

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
  const std::vector<std::pair<std::string, T*>> before(table.begin(), table.end());
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

/// What a namespace keeps.
struct TModelStore {
  bool allowsRedefinition;
  TModelClass* root = nullptr;
  TTable<TModelQualifier> qualifierDecls = {};
  TTable<TModelClass> classes = {};
  std::vector<std::shared_ptr<void>> everything = {};
  std::map<const ICIMClass*, TModelClass*> byHandle = {};

  template <class T, class... TArguments>
  T* New(TArguments&&... arguments) {
    const auto made = std::make_shared<T>(T{std::forward<TArguments>(arguments)...});
    everything.push_back(made);
    return made.get();
  }
  TModelClass* GetClass(TText name, TAny) const {
    return name.empty() || name == "<root>" ? root : Demand(Find(classes, name));
  }
};

/// A qualifier, or the declaration of one.
struct TModelQualifier {
  using EFlavor = ICIMQualifierDecl::EFlavor;
  std::string name;
  TCIMValue value;
  EFlavor flavor;
  TModelStore* space = nullptr;
  bool isPropagated = false;

  TText GetName(TAny) const { return name; }
  const TCIMValue& GetValue(TAny) const { return value; }
  const TCIMValue& GetDefaultValue(TAny) const { return value; }
  EFlavor GetFlavor(TAny) const { return flavor; }
  bool GetPropagated(TAny) const { return isPropagated; }
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
  void AddToNamespace(TAny) {
    if (Find(space->qualifierDecls, name) != nullptr && !space->allowsRedefinition) {
      LogModel(3, "Inmem: TInmemNamespace: qualifier " + name + " already defined");
      throw TVYRException(16);
    }
    space->qualifierDecls[Normalize(name)] = this;
  }
};

enum class EModelKind { kClass, kProperty, kMethod };

/// A class or a declaration: what has a name and qualifiers.
struct TModelNamed {
  using EFlavor = ICIMQualifierDecl::EFlavor;
  EModelKind kind;
  TModelStore* space;
  std::string name;
  TTable<TModelQualifier> qualifiers;

  TText GetName(TAny) const { return name; }
  TModelQualifier* AllocateQualifier(TModelQualifier* declared, const TCIMValue& value,
                                     TAny) const {
    return AllocateQualifier(declared, value, declared->flavor, {});
  }
  TModelQualifier* AllocateQualifier(TModelQualifier* declared, const TCIMValue& value,
                                     EFlavor flavor, TAny) const {
    return space->New<TModelQualifier>(declared->name, value, flavor);
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
    TModelQualifier* found = Find(qualifiers, named);
    return kind == EModelKind::kClass ? found : Demand(found);
  }
  TModelQualifier* GetQualifier(TText named, bool& found, TAny) const {
    if (kind == EModelKind::kMethod) throw TVYRException(1);
    TModelQualifier* qualifier = Find(qualifiers, named);
    found = qualifier != nullptr;
    return qualifier;
  }
  void EnumerateQualifiers(const TCall<TModelQualifier>& callback, TAny) const {
    Walk(qualifiers, kind == EModelKind::kClass, kind == EModelKind::kMethod, callback);
  }
  bool IsSet(TText qualifier) const {
    TModelQualifier* found = Find(qualifiers, qualifier);
    return found != nullptr && found->IsSet();
  }
};

/// The declaration of a property or of a method.
struct TModelDecl : TModelNamed {
  TModelClass* owner;
  TCIMValue value;  ///< of a property the default, of a method a null of its type

  TModelClass* GetClass(TAny) const { return owner; }
  TType GetType(TAny) const { return value.GetType(); }
  TType GetReturnType(TAny) const { return value.GetType(); }
  bool IsArray(TAny) const { return kind == EModelKind::kProperty && value.IsArray(); }
  const TCIMValue& GetDefaultValue(TAny) const { return value; }
  void SetDefaultValue(const TCIMValue& given, TAny) { value = TCIMValue(given); }
  void AddToClass(TAny);
};

}  // namespace NZELVYR20

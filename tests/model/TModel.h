#pragma once

#include <algorithm>
#include <sstream>

#include "TCIMDateTime.h"
#include "TModelElements.h"
#include "TOSSpecific.h"

namespace NZELVYR20 {

struct TModelClass : TModelNamed {
  TModelClass* super;
  boost::shared_ptr<ICIMClass> handle = {};
  TTable<TModelDecl> properties = {}, methods = {};
  TTable<TModelInstance> instances = {};
  std::vector<TModelClass*> subClasses = {}, associations = {};
  bool isInNamespace = false;

  void Inherit(bool isFresh) {
    if (super == nullptr) return;
    properties.insert(super->properties.begin(), super->properties.end());
    methods.insert(super->methods.begin(), super->methods.end());
    for (const auto& entry : super->qualifiers) {
      if ((entry.second->flavor & 2U) == 0 || (isFresh && entry.first == "abstract")) continue;
      if (qualifiers.count(entry.first) != 0) continue;
      auto* copy = space->New<TModelQualifier>(*entry.second);
      copy->isPropagated = true;
      qualifiers[entry.first] = copy;
    }
  }
  void LinkAssociation(bool isAdded) {
    if (!IsAssociation({})) return;
    std::vector<TModelClass*> ends;
    for (const auto& entry : properties) {
      const TCIMValue& value = entry.second->value;
      if (value.IsReference()) ends.push_back(space->byHandle.at(value.GetReferencedClass().get()));
    }
    for (std::size_t i = 0; i < ends.size(); ++i) {
      bool isSkipped = false;
      for (std::size_t j = 0; j < ends.size(); ++j) {
        isSkipped = isSkipped || (ends[j] == ends[i] ? j > i : ends[i]->IsSubclassOf(ends[j], {}));
      }
      if (isSkipped) continue;
      auto& linked = ends[i]->associations;
      const auto found = std::find(linked.begin(), linked.end(), this);
      if (isAdded && found == linked.end()) linked.push_back(this);
      if (isAdded) continue;
      if (found == linked.end()) throw TVYRException(15);
      linked.erase(found);
    }
  }
  bool IsReferredBy(const TModelClass& association, TText role) const {
    if (role.empty()) return true;
    const TModelDecl* end = Find(association.properties, role);
    return end != nullptr && end->value.IsReference() && end->value.GetReferencedClass() == handle;
  }

  void AddToNamespace(TAny) {
    Validate({});
    const std::string key = Normalize(name);
    TModelClass* earlier = Find(space->classes, name);
    if (earlier != nullptr && !space->allowsRedefinition) {
      LogModel(3, "Inmem: TInmemNamespace: class " + name + " already defined");
      throw TVYRException(16);
    }
    if (earlier == nullptr || !Contains(key, "zelsg_physicalnetworkport")) {
      space->classes[key] = this;
      if (earlier != nullptr) subClasses = std::vector<TModelClass*>(earlier->subClasses);
    }
    auto& siblings = super->subClasses;
    const auto same =
        std::find_if(siblings.begin(), siblings.end(),
                     [this](const TModelClass* other) { return other->name == name; });
    if (space->allowsRedefinition && same != siblings.end()) siblings.erase(same);
    siblings.push_back(this);
    isInNamespace = true;
    LinkAssociation(true);
  }
  void RemoveFromNamespace(TAny) {
    if (!isInNamespace || !associations.empty() || !subClasses.empty()) throw TVYRException(17);
    auto& siblings = super->subClasses;
    const auto found = std::find(siblings.begin(), siblings.end(), this);
    if (found != siblings.end()) siblings.erase(found);
    isInNamespace = false;
    LinkAssociation(false);
  }
  void Validate(TAny) const {
    if (IsAbstract({})) return;
    for (const auto& entry : properties) {
      if (entry.second->IsSet("KEY")) return;
    }
    LogModel(3, "Inmem: Class " + name + " has no keys");
    throw TVYRException(7);
  }
  bool IsAssociation(TAny) const { return IsSet("ASSOCIATION"); }
  bool IsAbstract(TAny) const { return IsSet("ABSTRACT"); }
  bool IsRootClass(TAny) const { return super == nullptr; }
  TModelClass* GetSuperClass(TAny) const { return super; }
  bool IsSubclassOf(const TModelClass* other, TAny) const {
    const bool isLast = IsRootClass({}) || super->IsRootClass({});
    return name == other->name || (!isLast && super->IsSubclassOf(other, {}));
  }
  void EnumerateSubClasses(const TCall<TModelClass>& callback, bool deep, TAny) {
    for (TModelClass* subClass : subClasses) {
      try {
        if (!callback(subClass)) return;
        if (deep) subClass->EnumerateSubClasses(callback, true, {});
      } catch (...) {
        continue;
      }
    }
  }
  void EnumerateAssociationClasses(const TCall<TModelClass>& callback, TText resultClass,
                                   TText role, TAny) {
    const TModelClass* filter = resultClass.empty() ? nullptr : space->GetClass(resultClass, {});
    for (TModelClass* at = this; at != nullptr && (at == this || !at->IsRootClass({}));
         at = at->super) {
      for (TModelClass* association : at->associations) {
        if (filter != nullptr && !association->IsSubclassOf(filter, {})) continue;
        if (at->IsReferredBy(*association, role) && !callback(association)) return;
      }
    }
  }
  void EnumerateKeyNames(const std::function<bool(const std::string*)>& callback, TAny) const {
    Walk(properties, true, true, [&](const TModelDecl* declaration) {
      return !declaration->IsSet("KEY") || callback(&declaration->name);
    });
  }
  TModelDecl* AllocatePropertyDecl(TText given, const TCIMValue& value, TAny) {
    return space->New<TModelDecl>(TModelNamed{EModelKind::kProperty, space, given, {}}, this,
                                  value);
  }
  TModelDecl* AllocateMethodDecl(TText given, TType type, TAny) {
    return space->New<TModelDecl>(TModelNamed{EModelKind::kMethod, space, given, {}}, this,
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
  TModelInstance* AllocateInstance(TAny);
  TModelInstance* GetInstance(const TCIMReference& path) const {
    const auto found = instances.find(path.GetPath());
    return found == instances.end() ? nullptr : found->second;
  }
  void EnumerateInstances(const TCall<TModelInstance>& callback, bool deep, TAny) {
    Walk(instances, false, false, callback);
    if (!deep) return;
    for (TModelClass* subClass : subClasses) subClass->EnumerateInstances(callback, true, {});
  }
  void AddPropertyDecl(TModelDecl* added) {
    const std::string where = added->name + " in class " + name + ": ";
    if (added->value.IsReference() && !IsAssociation({})) {
      LogModel(0, "Inmem: Attempt to add reference property " + added->name +
                      " to non-association class " + name);
      throw TVYRException(22);
    }
    const TModelDecl* earlier = Find(properties, added->name);
    bool isAdded = earlier == nullptr;
    if (Find(added->qualifiers, "OVERRIDE") == nullptr) {
      isAdded |= Contains(added->name, "PortType") || Contains(added->name, "speedDuplex");
    } else if (earlier == nullptr) {
      if (!Contains(Normalize(added->name), "porttype")) {
        LogModel(3, "Inmem: Attempt to override property " + where +
                        "property doesn't exist in base class");
      }
    } else if (earlier->GetType({}) != added->GetType({})) {
      LogModel(3, "Inmem: Attempt to override property " + where + "different types");
    } else {
      isAdded = earlier->owner != this;
    }
    if (isAdded) properties[Normalize(added->name)] = added;
  }
  void RemovePropertyDecl(TModelDecl* removed) { Remove(properties, removed); }
  void AddMethodDecl(TModelDecl* added) {
    const TModelDecl* earlier = Find(methods, added->name);
    const std::string attempt =
        "Inmem: Attempt to override method " + added->name + " in class " + name + ": ";
    const auto fail = [&](int status, TText why) {
      LogModel(3, attempt + why);
      LogModel(3, "Inmem: Attempt define method " + added->name + " in class " + name +
                      "failed. Reason = " + TVYRException(status).what());
      throw TVYRException(status);
    };
    if (Find(added->qualifiers, "OVERRIDE") == nullptr) {
      if (earlier != nullptr) {
        LogModel(3, "Inmem: Attempt to add method " + added->name + " to class " + name +
                        ": already exists");
        throw TVYRException(16);
      }
    } else if (earlier == nullptr) {
      LogModel(3, attempt + "method doesn't exist in base class");
    } else if (earlier->GetType({}) != added->GetType({})) {
      fail(14, "different types");
    } else if (earlier->owner == this) {
      fail(16, "original was defined in this class");
    }
    methods[Normalize(added->name)] = added;
  }
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
  void Check(const TCIMValue& given, TText operation) const {
    std::ostringstream why;
    const auto& byHandle = declaration->space->byHandle;
    if (GetType({}) != given.GetType()) {
      why << operation << ": decl is type " << GetType({}) << " but value is type "
          << given.GetType();
    } else if (given.IsReference()) {
      const TModelClass* declared = byHandle.at(declaration->value.GetReferencedClass().get());
      const TModelClass* referenced = byHandle.at(given.GetReferencedClass().get());
      if (referenced->IsSubclassOf(declared, {})) return;
      why << operation << ": decl references type " << declared->name << " but value references "
          << referenced->name;
    } else {
      return;
    }
    LogModel(3, why.str());
    throw TVYRException(14);
  }
  std::string ToString() const { return Show(GetValue({})); }
  std::string PrevValueToString() const { return Show(GetPrevValue()); }
  TCIMValue Read(TText qualifier, TType type) const {
    const TModelQualifier* found = Find(declaration->qualifiers, qualifier);
    return found != nullptr && found->value.GetType() == type ? found->value : TCIMValue();
  }
  /// By the qualifiers that the pool of names has.
  std::string Show(const TCIMValue& shown) const {
    if (shown.IsNull()) return Read("NULLDISPLAY", TType::kString).ToString(10);
    const TCIMValue base = Read("BASE", TType::kUInt8);
    return shown.ToString(base.IsNull() ? 10 : static_cast<unsigned char>(base));
  }
};

struct TModelInstance {
  TModelClass* cimClass;
  TTable<TModelProperty> properties = {};

  void Initialize() {
    for (const auto& entry : cimClass->properties) {
      properties[entry.first] = cimClass->space->New<TModelProperty>(entry.second);
    }
    try {
      cimClass->GetPropertyDecl("DateTimeOfCollection", {});
      SetPropertyValue("DateTimeOfCollection", TOSSpecific::GetLocalTime(), {});
    } catch (const TVYRException&) {
    }
  }
  void Validate(TAny) const {
    cimClass->EnumerateKeyNames(
        [this](const std::string* key) {
          if (!GetProperty(*key, {})->GetValue({}).IsNull()) return true;
          LogModel(0, "Inmem: Instance " + cimClass->name + ": key property " + *key + " is NULL");
          throw TVYRException(18);
        },
        {});
    if (!cimClass->IsAssociation({})) return;
    for (const auto& entry : properties) {
      const TCIMValue& value = entry.second->GetValue({});
      if (!value.IsReference() || Try([&] { return Resolve(value) != nullptr; })) continue;
      LogModel(0, "Inmem: Reference " + static_cast<TCIMReference>(value).GetPath() +
                      " doesn't point to anything!");
      throw TVYRException(15);
    }
  }
  void AddToNamespace(TAny) {
    try {
      Validate({});
    } catch (const TVYRException&) {
      return LogModel(0, "Inmem: Instance " + cimClass->name + ": invalid references");
    }
    Delete({});
    cimClass->instances[GetReference({}).GetPath()] = this;
  }
  void Delete(TAny) const { cimClass->instances.erase(GetReference({}).GetPath()); }
  TCIMReference GetReference(TAny) const {
    TCIMReference path({}, {});
    path.SetClass(cimClass->handle);
    cimClass->EnumerateKeyNames(
        [&](const std::string* key) {
          path.AddKeyValue(*key, GetProperty(*key, {})->GetValue({}));
          return true;
        },
        {});
    return path;
  }
  TModelClass* GetClass(TAny) const { return cimClass; }
  TModelProperty* GetProperty(TText name, TAny) const {
    if (TModelProperty* held = Find(properties, name)) return held;
    if (Contains(name, "speedDuplex")) return Derive("speedDuplex", std::string("Unknown"));
    if (Contains(name, "Description")) return Derive("Description", std::string(" "));
    for (const char* status : {"CommunicationStatus", "DetailedStatus", "HealthState",
                               "OperatingStatus", "PrimaryStatus"}) {
      if (Contains(name, status)) return Derive(name, static_cast<unsigned short>(0));
    }
    throw TVYRException(15);
  }
  void SetPropertyValue(TText name, const TCIMValue& value, TAny) const {
    TModelProperty* held = Find(properties, name);
    if (held != nullptr) return held->SetValue(value, {});
    if (!Contains(name, "speedDuplex")) throw TVYRException(15);
  }
  void EnumerateProperties(const TCall<TModelProperty>& callback, TAny) const {
    Walk(properties, false, true, callback);
  }
  void EnumerateAssociationInstances(const TCall<TModelInstance>& callback, TText resultClass,
                                     TText role, TAny) {
    const auto examine = [&](TModelInstance* found) {
      const auto refers = [&](const TModelProperty* property) {
        const TCIMValue& value = property->GetValue({});
        if (!value.IsReference() || Resolve(value) != this) return false;
        callback(found);
        return true;
      };
      if (!role.empty()) return Try([&] { return refers(found->GetProperty(role, {})); });
      for (const auto& entry : found->properties) {
        if (Try([&] { return refers(entry.second); })) break;
      }
      return true;
    };
    cimClass->EnumerateAssociationClasses(
        [&](TModelClass* association) {
          association->EnumerateInstances(examine, false, {});
          return true;
        },
        resultClass, role, {});
  }
  void EnumerateAssociatedInstances(const TCall<TModelInstance>& callback, TText assocClass,
                                    TText resultClass, TText role, TText resultRole, TAny) {
    TModelStore* space = cimClass->space;
    const TModelClass* wanted = nullptr;
    if (!Try([&] { return (wanted = space->GetClass(resultClass, {})) != nullptr; })) return;
    const auto deliver = [&](const TCIMValue& value) {
      if (!value.IsReference()) return false;
      const TModelClass* referenced = space->byHandle.at(value.GetReferencedClass().get());
      if (!referenced->IsSubclassOf(wanted, {})) return false;
      callback(Resolve(value));
      return true;
    };
    const auto examine = [&](TModelInstance* found) {
      if (!resultRole.empty()) {
        return Try([&] { return deliver(found->GetProperty(resultRole, {})->GetValue({})); });
      }
      const std::string own = Normalize(role);
      bool isOwnFound = false;
      const auto isOwn = [&](TText key, const TCIMValue& value) {
        if (isOwnFound || !value.IsReference()) return false;
        if (!own.empty()) return key == own;
        return value.GetReferencedClass() == cimClass->handle && Resolve(value) == this;
      };
      for (const auto& entry : found->properties) {
        const bool isDelivered = Try([&] {
          const bool isThisEnd = isOwn(entry.first, entry.second->GetValue({}));
          isOwnFound = isOwnFound || isThisEnd;
          return !isThisEnd && deliver(entry.second->GetValue({}));
        });
        if (isDelivered) break;
      }
      return true;
    };
    EnumerateAssociationInstances(examine, assocClass, "", {});
  }
  TModelProperty* Derive(TText name, const TCIMValue& value) const {
    cimClass->AddPropertyDecl(cimClass->AllocatePropertyDecl(name, value, {}));
    return cimClass->space->New<TModelProperty>(cimClass->GetPropertyDecl(name, {}));
  }
  TModelInstance* Resolve(const TCIMValue& reference) const {
    const auto path = static_cast<TCIMReference>(reference);
    return Demand(cimClass->space->GetClass(path.GetClassName(), {})->GetInstance(path));
  }
};

inline void TModelDecl::AddToClass(TAny) {
  kind == EModelKind::kProperty ? owner->AddPropertyDecl(this) : owner->AddMethodDecl(this);
}

inline TModelInstance* TModelClass::AllocateInstance(TAny) {
  auto* made = space->New<TModelInstance>(this);
  made->Initialize();
  return made;
}

struct TModelNamespace : TModelStore {
  explicit TModelNamespace(bool redefines) : TModelStore{redefines} {
    root = AllocateClass("<root>", nullptr, {});
  }
  TModelClass* AllocateClass(TText name, TModelClass* super, TAny) {
    TModelClass* present = nullptr;
    try {
      present = GetClass(name, {});
    } catch (const TVYRException&) {
    }
    if (present != nullptr) {
      present->Inherit(false);
      return present;
    }
    auto* made = New<TModelClass>(TModelNamed{EModelKind::kClass, this, name, {}},
                                  super == nullptr ? root : super);
    made->Inherit(true);
    return made;
  }
  void EnumerateRootClasses(const TCall<TModelClass>& callback, TAny) {
    root->EnumerateSubClasses(callback, false, {});
  }
  TModelQualifier* AllocateQualifierDecl(TText name, const TCIMValue& value,
                                         ICIMQualifierDecl::EScope,
                                         ICIMQualifierDecl::EFlavor flavor, TAny) {
    return New<TModelQualifier>(name, value, flavor, this);
  }
  TModelQualifier* GetQualifierDecl(TText name, TAny) { return Find(qualifierDecls, name); }
  TModelInstance* GetInstance(const TCIMReference& path, TAny) {
    return GetClass(path.GetClassName(), {})->GetInstance(path);
  }
  void EnumerateQualifierDecls(const TCall<TModelQualifier>& callback, TAny) {
    Walk(qualifierDecls, false, false, callback);
  }
  void ClearInstances() {
    for (const auto& entry : classes) entry.second->instances.clear();
  }
};

}  // namespace NZELVYR20

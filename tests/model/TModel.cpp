#include "TModel.h"

#include <algorithm>
#include <cstdint>
#include <sstream>

#include "TCIMDateTime.h"
#include "TOSSpecific.h"

namespace NZELVYR20 {

void TModelQualifier::AddToClassOrProperty(TAny) { owner->AddQualifier(this); }

void TModelQualifier::AddToNamespace(TAny) {
  if (Find(space->qualifierDecls, name) != nullptr && !space->allowsRedefinition) {
    LogModel(3, "Inmem: TInmemNamespace: qualifier " + name + " already defined");
    throw TVYRException(16);
  }
  space->qualifierDecls[Normalize(name)] = this;
}

TModelClass* TModelNamespace::AllocateClass(TText name, TModelClass* super, TAny) {
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

void TModelNamespace::EnumerateRootClasses(const TCall<TModelClass>& callback, TAny) {
  root->EnumerateSubClasses(callback, false, {});
}

TModelInstance* TModelNamespace::GetInstance(const TCIMReference& path, TAny) {
  const auto& held = GetClass(path.GetClassName(), {})->instances;
  return held.count(path.GetPath()) == 0 ? nullptr : held.at(path.GetPath());
}

void TModelNamespace::ClearInstances() {
  for (const auto& entry : classes) entry.second->instances.clear();
}

void TModelDecl::AddToClass(TAny) {
  kind == EModelKind::kProperty ? owner->AddPropertyDecl(this) : owner->AddMethodDecl(this);
}

/// Takes over from the superclass what is missing. "ABSTRACT" never reaches a fresh class.
void TModelClass::Inherit(bool isFresh) {
  if (super == nullptr) return;
  properties.insert(super->properties.begin(), super->properties.end());
  methods.insert(super->methods.begin(), super->methods.end());
  for (const auto& entry : super->qualifiers) {
    if ((entry.second->flavor & 2U) == 0 || (isFresh && entry.first == "abstract")) continue;
    if (qualifiers.count(entry.first) != 0) continue;
    auto* copy = space->New<TModelQualifier>(*entry.second);
    copy->owner = this;
    copy->isPropagated = true;
    qualifiers[entry.first] = copy;
  }
}

void TModelClass::Validate(TAny) const {
  if (IsAbstract({})) return;
  for (const auto& entry : properties) {
    if (entry.second->IsSet("KEY")) return;
  }
  LogModel(3, "Inmem: Class " + name + " has no keys");
  throw TVYRException(7);
}

void TModelClass::AddToNamespace(TAny) {
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
  const auto same = std::find_if(siblings.begin(), siblings.end(),
                                 [this](const TModelClass* other) { return other->name == name; });
  if (space->allowsRedefinition && same != siblings.end()) siblings.erase(same);
  siblings.push_back(this);
  isInNamespace = true;
  LinkAssociation(true);
}

void TModelClass::RemoveFromNamespace(TAny) {
  if (!isInNamespace || !associations.empty() || !subClasses.empty()) throw TVYRException(17);
  auto& siblings = super->subClasses;
  const auto found = std::find(siblings.begin(), siblings.end(), this);
  if (found != siblings.end()) siblings.erase(found);
  isInNamespace = false;
  LinkAssociation(false);
}

/// Of the classes referred to, each once, and none whose superclass is referred to as well.
void TModelClass::LinkAssociation(bool isAdded) {
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

void TModelClass::EnumerateSubClasses(const TCall<TModelClass>& callback, bool deep, TAny) {
  for (TModelClass* subClass : std::vector<TModelClass*>(subClasses)) {
    try {
      if (!callback(subClass)) return;
      if (deep) subClass->EnumerateSubClasses(callback, true, {});
    } catch (...) {
      continue;
    }
  }
}

bool TModelClass::IsReferredBy(const TModelClass& association, TText role) const {
  if (role.empty()) return true;
  const TModelDecl* end = Find(association.properties, role);
  return end != nullptr && end->value.IsReference() && end->value.GetReferencedClass() == handle;
}

void TModelClass::EnumerateAssociationClasses(const TCall<TModelClass>& callback, TText resultClass,
                                              TText role, TAny) {
  const TModelClass* filter = space->GetFilter(resultClass);
  for (TModelClass* at = this; at != nullptr && (at == this || !at->IsRootClass({}));
       at = at->super) {
    for (TModelClass* association : std::vector<TModelClass*>(at->associations)) {
      if (filter != nullptr && !association->IsSubclassOf(filter, {})) continue;
      if (at->IsReferredBy(*association, role) && !callback(association)) return;
    }
  }
}

void TModelClass::EnumerateKeyNames(const std::function<bool(const std::string*)>& callback,
                                    TAny) const {
  Walk(properties, true, true, [&](const TModelDecl* declaration) {
    return !declaration->IsSet("KEY") || callback(&declaration->name);
  });
}

TModelInstance* TModelClass::AllocateInstance(TAny) {
  auto* made = space->New<TModelInstance>(this);
  made->Initialize();
  return made;
}

void TModelClass::EnumerateInstances(const TCall<TModelInstance>& callback, bool deep, TAny) {
  Walk(instances, false, false, callback);
  if (!deep) return;
  for (TModelClass* subClass : subClasses) subClass->EnumerateInstances(callback, true, {});
}

void TModelClass::AddPropertyDecl(TModelDecl* added) {
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

void TModelClass::AddMethodDecl(TModelDecl* added) {
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

void TModelProperty::Check(const TCIMValue& given, TText operation) const {
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

/// A qualifier of the declaration, if it has that type; else a null.
TCIMValue TModelProperty::Read(TText qualifier, TType type) const {
  const TModelQualifier* found = Find(declaration->qualifiers, qualifier);
  return found != nullptr && found->value.GetType() == type ? found->value : TCIMValue();
}

std::string TModelProperty::ShowByBase(const TCIMValue& shown) const {
  if (shown.IsNull()) return Read("NULLDISPLAY", TType::kString).ToString(10);
  const TCIMValue base = Read("BASE", TType::kUInt8);
  return shown.ToString(base.IsNull() ? 10 : static_cast<unsigned char>(base));
}

/// "Values" without "ValueMap": the texts stand for 0, 1, 2 and so on.
std::string TModelProperty::Show(const TCIMValue& shown) const {
  const TCIMValue texts = Read("Values", TType::kStringArray);
  const auto type = shown.GetType();
  const bool isNumber = type == TType::kUInt8 || type == TType::kUInt16 || type == TType::kUInt32 ||
                        type == TType::kUInt64;
  if (shown.IsNull() || texts.IsNull() || !(isNumber || type == TType::kBoolean)) {
    return ShowByBase(shown);
  }
  const auto& list = static_cast<const std::vector<TCIMValue>&>(texts);
  const std::uint64_t at = isNumber ? std::stoull(shown.ToString(10)) : static_cast<bool>(shown);
  return at < list.size() ? list[at].ToString(10) : shown.ToString(10);
}

std::vector<std::string> TModelProperty::ToStringVector() const {
  const TCIMValue& shown = GetValue({});
  if (shown.IsArray() != IsArray({})) return {};
  if (!shown.IsArray()) return {ShowByBase(shown)};
  std::vector<std::string> texts;
  if (shown.IsNull() && Read("NULLDISPLAY", TType::kString).IsNull()) return texts;
  if (shown.IsNull()) return {ShowByBase(shown)};
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(shown)) {
    texts.push_back(Show(element));
  }
  return texts;
}

void TModelInstance::Initialize() {
  for (const auto& entry : cimClass->properties) {
    properties[entry.first] = cimClass->space->New<TModelProperty>(entry.second);
  }
  try {
    cimClass->GetPropertyDecl("DateTimeOfCollection", {});
    SetPropertyValue("DateTimeOfCollection", TOSSpecific::GetLocalTime(), {});
  } catch (const TVYRException&) {
  }
}

void TModelInstance::Validate(TAny) const {
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

void TModelInstance::AddToNamespace(TAny) {
  try {
    Validate({});
  } catch (const TVYRException&) {
    return LogModel(0, "Inmem: Instance " + cimClass->name + ": invalid references");
  }
  Delete({});
  cimClass->instances[GetReference({}).GetPath()] = this;
}

TCIMReference TModelInstance::GetReference(TAny) const {
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

TModelProperty* TModelInstance::GetProperty(TText name, TAny) const {
  if (TModelProperty* held = Find(properties, name)) return held;
  if (Contains(name, "speedDuplex")) return Derive("speedDuplex", std::string("Unknown"));
  if (Contains(name, "Description")) return Derive("Description", std::string(" "));
  for (const char* status : {"CommunicationStatus", "DetailedStatus", "HealthState",
                             "OperatingStatus", "PrimaryStatus"}) {
    if (Contains(name, status)) return Derive(name, static_cast<unsigned short>(0));
  }
  throw TVYRException(15);
}

TModelProperty* TModelInstance::Derive(TText name, const TCIMValue& value) const {
  cimClass->AddPropertyDecl(cimClass->AllocatePropertyDecl(name, value, {}));
  return cimClass->space->New<TModelProperty>(cimClass->GetPropertyDecl(name, {}));
}

void TModelInstance::SetPropertyValue(TText name, const TCIMValue& value, TAny) {
  TModelProperty* held = Find(properties, name);
  if (held != nullptr) return held->SetValue(value, {});
  if (!Contains(name, "speedDuplex")) throw TVYRException(15);
}

TModelInstance* TModelInstance::Resolve(const TCIMValue& reference) const {
  return Demand(cimClass->space->GetInstance(static_cast<TCIMReference>(reference), {}));
}

void TModelInstance::EnumerateAssociationInstances(const TCall<TModelInstance>& callback,
                                                   TText resultClass, TText role, TAny) {
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

void TModelInstance::EnumerateAssociatedInstances(const TCall<TModelInstance>& callback,
                                                  TText assocClass, TText resultClass, TText role,
                                                  TText resultRole, TAny) {
  TModelNamespace* space = cimClass->space;
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

}  // namespace NZELVYR20

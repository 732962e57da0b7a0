#pragma once

#include <algorithm>
#include <sstream>

#include "ICIMInstance.h"
#include "TCIMDateTime.h"
#include "TModelElements.h"
#include "TOSSpecific.h"

namespace NZELVYR20 {

struct TModelInstance;

inline TPtr<TModelClass> ReferencedClass(const TCIMValue& value);

struct TModelClass : TModelNamed<EModelKind::kClass, ICIMClass, TModelClass> {
  using ICIMClass::operator=;
  boost::weak_ptr<TModelStore> space = {};
  boost::weak_ptr<TModelClass> super = {};
  const void* identity = nullptr;  ///< the address of the plug-in's class
  TTable<std::string, TModelPropertyDecl> properties = {};
  TTable<unsigned, TModelClass> subClasses = {};
  TTable<const void*, TModelClass> associations = {};  ///< by identity
  TTable<std::string, TModelInstance> instances = {};
  TTable<std::string, TModelMethodDecl> methods = {};
  bool isInNamespace = false;
  bool isRetired = false;  ///< its namespace is gone

  void Inherit(bool isFresh) {
    const auto above = super.lock();
    if (!above) {
      const auto root = space.lock()->root;
      if (root.get() != this) super = root;
      return;
    }
    for (const auto& [key, entry] : above->properties.entries) {
      properties.Insert(key, entry.element, Use(entry.element, true));
    }
    for (const auto& [key, entry] : above->methods.entries) {
      methods.Insert(key, entry.element, Use(entry.element, true));
    }
    for (const auto& [key, entry] : above->qualifiers.entries) {
      if ((entry.element->flavor & 2U) == 0 || (isFresh && key == "abstract")) continue;
      const auto copy = boost::make_shared<TModelQualifier>(*entry.element);
      copy->owner = shared_from_this();
      copy->value = entry.element->GetValue({});
      copy->isPropagated = true;
      qualifiers.Insert(key, copy);
    }
  }
  /// What holds in a circle is parted, since the namespace goes.
  void ReleaseLinks() {
    instances.Clear();
    subClasses.Clear();
    associations.Clear();
    FreeQualifiers();
    isRetired = true;
    const auto retire = [](auto& table) {
      for (auto& entry : table.entries) entry.second.use = Use(entry.second.element, false);
    };
    retire(properties);
    retire(methods);
  }

  std::vector<TPtr<TModelClass>> GetRegistrations() const {
    std::vector<TPtr<TModelClass>> ends;
    for (const auto& entry : properties.entries) {
      if (const auto end = ReferencedClass(entry.second.element->value.now)) ends.push_back(end);
    }
    std::vector<TPtr<TModelClass>> registrations;
    for (std::size_t i = 0; i < ends.size(); ++i) {
      bool isSkipped = false;
      for (std::size_t j = 0; j < ends.size(); ++j) {
        isSkipped = isSkipped || (ends[j] == ends[i] ? j > i : ends[i]->IsSubclassOf(ends[j], {}));
      }
      if (!isSkipped) registrations.push_back(ends[i]);
    }
    return registrations;
  }
  bool IsReferredBy(const TModelClass& association, TText role) const {
    if (role.empty()) return true;
    const auto end = association.properties.Find(role);
    return end && ReferencedClass(end->value.now).get() == this;
  }

  void AddToNamespace(TAny) override {
    Validate({});
    Enter(*space.lock());
    super.lock()->AddChildClass(shared_from_this());
    isInNamespace = true;
    if (!IsAssociation({})) return;
    for (const auto& end : GetRegistrations()) end->AddAssociationClass(shared_from_this());
  }
  void Enter(TModelStore& store) {
    const std::string key = Normalize(name);
    store.Check(store.classes, "class", name);
    const auto earlier = store.classes.FindKey(key);
    if (earlier && Contains(key, "zelsg_physicalnetworkport")) return;
    if (earlier && earlier.get() != this) {
      const auto taken = earlier->subClasses.entries;
      subClasses.Clear();
      for (const auto& entry : taken) subClasses.Append(entry.second.element);
    }
    store.classes.Put(key, shared_from_this());
  }
  void RemoveFromNamespace(TAny) override {
    const bool isUsed = !associations.entries.empty() || !subClasses.entries.empty();
    if (!isInNamespace || isUsed) throw TVYRException(17);
    if (const auto above = super.lock()) above->RemoveChildClass(shared_from_this());
    isInNamespace = false;
    if (!IsAssociation({})) return;
    for (const auto& end : GetRegistrations()) end->RemoveAssociationClass(shared_from_this());
  }
  void AddChildClass(TPtr<ICIMClass> added) override {
    const auto subClass = boost::static_pointer_cast<TModelClass>(added);
    const auto isSame = [&](const TModelClass& other) { return other.name == subClass->name; };
    if (space.lock()->redefines) subClasses.EraseFirst(isSame);
    subClasses.Append(subClass);
  }
  void RemoveChildClass(TPtr<ICIMClass> removed) override {
    subClasses.EraseFirst([&](const TModelClass& other) { return &other == removed.get(); });
  }
  void AddAssociationClass(TPtr<ICIMClass> added) override {
    const auto association = boost::static_pointer_cast<TModelClass>(added);
    associations.Insert(association->identity, association);
  }
  void RemoveAssociationClass(TPtr<ICIMClass> removed) override {
    const auto& association = static_cast<const TModelClass&>(*removed);
    if (!associations.Erase(association.identity) && !isRetired) throw TVYRException(15);
  }
  void ModifyClass(TPtr<ICIMClass>, TAny) override {}
  void Validate(TAny) const override {
    if (IsAbstract({})) return;
    for (const auto& entry : properties.entries) {
      if (entry.second.element->IsSet("KEY")) return;
    }
    LogModel(3, "Inmem: Class " + name + " has no keys");
    throw TVYRException(7);
  }
  TText GetName(TAny) const override { return name; }
  TPtr<ICIMNamespace> GetNamespace(TAny) const override { return space.lock(); }
  bool IsAssociation(TAny) const override { return IsSet("ASSOCIATION"); }
  bool IsAbstract(TAny) const override { return IsSet("ABSTRACT"); }
  bool IsRootClass(TAny) const override { return name == "<root>"; }
  TPtr<ICIMClass> GetSuperClass(TAny) const override { return super.lock(); }
  bool IsSubclassOf(TPtr<const ICIMClass> other, TAny) const override {
    if (name == other->GetName({})) return true;
    const auto above = super.lock();
    return above && !above->IsRootClass({}) && above->IsSubclassOf(other, {});
  }
  void EnumerateSubClasses(const TCIMClassCallback& callback, bool deep, TAny) override {
    subClasses.Walk(true, false, [&](const TPtr<TModelClass>& subClass) {
      if (!callback(subClass)) return false;
      if (deep) subClass->EnumerateSubClasses(callback, true, {});
      return true;
    });
  }
  TPtr<ICIMClass> FindFilter(TText filter) const {
    return filter.empty() ? TPtr<ICIMClass>() : Demand(GetNamespace({}))->GetClass(filter, {});
  }
  void EnumerateAssociationClasses(const TCIMClassCallback& callback, TText resultClass, TText role,
                                   TAny) override {
    const auto filter = FindFilter(resultClass);
    bool goesOn = true;
    for (auto at = shared_from_this(); at; at = at->super.lock()) {
      if (at.get() != this && at->IsRootClass({})) return;
      at->associations.Walk(true, true, [&](const TPtr<TModelClass>& association) {
        const bool passes = !filter || association->IsSubclassOf(filter, {});
        if (passes && at->IsReferredBy(*association, role)) goesOn = callback(association);
        return goesOn;
      });
      if (!goesOn) return;
    }
  }
  void EnumerateAssociatedClasses(const TCIMClassCallback& callback, TText assocClass,
                                  TText resultClass, TText role, TText resultRole, TAny) override {
    const auto assocFilter = FindFilter(assocClass);
    const auto filter = FindFilter(resultClass);
    associations.Walk(true, true, [&](const TPtr<TModelClass>& association) {
      if (assocFilter && !association->IsSubclassOf(assocFilter, {})) return true;
      if (!IsReferredBy(*association, role)) return true;
      for (const auto& end : GetFarEnds(*association, filter, role, resultRole)) {
        if (!callback(end)) return false;
      }
      return true;
    });
  }
  /// Each class once. The own end is the role's, or the first that refers to this very class and is
  /// not the result role's.
  std::vector<TPtr<TModelClass>> GetFarEnds(const TModelClass& association,
                                            const TPtr<ICIMClass>& filter, TText role,
                                            TText resultRole) const {
    const std::string own = Normalize(role);
    const std::string wanted = Normalize(resultRole);
    std::vector<TPtr<TModelClass>> ends;
    bool isOwnFound = false;
    for (const auto& [key, entry] : association.properties.entries) {
      const auto end = ReferencedClass(entry.element->value.now);
      if (!end) continue;
      const bool isOwn = own.empty() ? end.get() == this && key != wanted : key == own;
      const bool isSkipped = isOwn && !isOwnFound;
      isOwnFound = isOwnFound || isOwn;
      if (isSkipped || (!wanted.empty() && key != wanted)) continue;
      if (filter && !end->IsSubclassOf(filter, {})) continue;
      if (std::find(ends.begin(), ends.end(), end) == ends.end()) ends.push_back(end);
    }
    return ends;
  }
  void EnumerateKeyNames(const TCIMKeyNameCallback& callback, TAny) override {
    try {
      properties.Walk(true, true, [&](const TPtr<TModelPropertyDecl>& declaration) {
        return !declaration->IsSet("KEY") || callback(&declaration->name);
      });
    } catch (const TVYRException& failure) {
      throw TVYRException(failure.GetStatusCode());
    }
  }

  template <class TDeclaration>
  TPtr<TDeclaration> Declare(TText given, const TCIMValue& value) {
    auto made = boost::make_shared<TDeclaration>();
    made->name = given;
    made->owner = shared_from_this();
    made->value = value;
    return made;
  }
  TPtr<ICIMPropertyDecl> AllocatePropertyDecl(TText given, const TCIMValue& value, TAny) override {
    return Declare<TModelPropertyDecl>(given, value);
  }
  TPtr<ICIMMethodDecl> AllocateMethodDecl(TText given, TType type, TAny) override {
    return Declare<TModelMethodDecl>(given, TCIMValue::Null(type));
  }
  TPtr<ICIMPropertyDecl> GetPropertyDecl(TText given, TAny) const override {
    return Demand(properties.Find(given));
  }
  TPtr<ICIMMethodDecl> GetMethodDecl(TText given, TAny) const override {
    return methods.Find(given);
  }
  void EnumeratePropertyDecls(const TCIMPropertyDeclCallback& callback, TAny) const override {
    properties.Walk(true, false, callback);
  }
  void EnumerateMethodDecls(const TCIMMethodDeclCallback& callback, TAny) const override {
    methods.Walk(true, false, callback);
  }
  TPtr<ICIMProperty> GetProperty(TText given, TAny) const override {
    Normalize(given);
    throw TVYRException(15);
  }
  void SetPropertyValue(TText given, const TCIMValue&, TAny) override { GetProperty(given, {}); }
  void EnumerateStaticProperties(const TCIMPropertyCallback&, TAny) override {}
  TCIMValue InvokeMethod(TText, TCIMContext&, TAny) override { return {}; }
  bool operator==(ICIMClass& other) const override { return name == other.GetName({}); }
  bool operator<(ICIMClass& other) const override { return name < other.GetName({}); }

  TPtr<ICIMInstance> AllocateInstance(TAny) override;
  void AddInstance(TPtr<ICIMInstance> added) override;
  void RemoveInstance(TPtr<ICIMInstance> removed) override {
    instances.Erase(removed->GetReference({}).GetPath());
  }
  void EnumerateInstances(const TCIMInstanceCallback& callback, bool deep, TAny) override;

  void AddPropertyDecl(TPtr<ICIMPropertyDecl> given) override {
    const auto added = boost::static_pointer_cast<TModelPropertyDecl>(given);
    const std::string where = added->name + " in class " + name + ": ";
    if (added->GetType({}) == TType::kReference && !IsAssociation({})) {
      LogModel(0, "Inmem: Attempt to add reference property " + added->name +
                      " to non-association class " + name);
      throw TVYRException(22);
    }
    const auto earlier = properties.Find(added->name);
    bool isAdded = earlier == nullptr;
    if (!added->qualifiers.Find("OVERRIDE")) {
      isAdded |= Contains(added->name, "PortType") || Contains(added->name, "speedDuplex");
    } else if (!earlier) {
      if (!Contains(Normalize(added->name), "porttype")) {
        LogModel(3, "Inmem: Attempt to override property " + where +
                        "property doesn't exist in base class");
      }
    } else if (earlier->GetType({}) != added->GetType({})) {
      LogModel(3, "Inmem: Attempt to override property " + where + "different types");
    } else {
      isAdded = earlier->owner.lock().get() != this;
    }
    if (isAdded) properties.Put(Normalize(added->name), added, Use(added, !isRetired));
  }
  void RemovePropertyDecl(TPtr<ICIMPropertyDecl> removed) override {
    properties.Remove(removed->GetName({}));
  }
  void AddMethodDecl(TPtr<ICIMMethodDecl> given) override {
    const auto added = boost::static_pointer_cast<TModelMethodDecl>(given);
    const auto earlier = methods.Find(added->name);
    const std::string attempt =
        "Inmem: Attempt to override method " + added->name + " in class " + name + ": ";
    const auto fail = [&](int status, TText why) {
      LogModel(3, attempt + why);
      LogModel(3, "Inmem: Attempt define method " + added->name + " in class " + name +
                      "failed. Reason = " + TVYRException(status).what());
      throw TVYRException(status);
    };
    if (!added->qualifiers.Find("OVERRIDE")) {
      if (earlier) {
        LogModel(3, "Inmem: Attempt to add method " + added->name + " to class " + name +
                        ": already exists");
        throw TVYRException(16);
      }
    } else if (!earlier) {
      LogModel(3, attempt + "method doesn't exist in base class");
    } else if (earlier->GetReturnType({}) != added->GetReturnType({})) {
      fail(14, "different types");
    } else if (earlier->owner.lock().get() == this) {
      fail(16, "original was defined in this class");
    }
    methods.Put(Normalize(added->name), added, Use(added, !isRetired));
  }
  void RemoveMethodDecl(TPtr<ICIMMethodDecl> removed) override {
    methods.Remove(removed->GetName({}));
  }
};

inline TPtr<TModelClass> ReferencedClass(const TCIMValue& value) {
  return boost::static_pointer_cast<TModelClass>(value.GetReferencedClass());
}

struct TModelProperty : ICIMProperty {
  TPtr<TModelPropertyDecl> declaration = {};
  std::optional<TCIMValue> value = {}, previous = {};

  static TPtr<TModelProperty> Make(const TPtr<TModelPropertyDecl>& declared) {
    auto made = boost::make_shared<TModelProperty>();
    made->declaration = declared;
    return made;
  }
  TPtr<const ICIMPropertyDecl> GetDeclaration(TAny) const override { return declaration; }
  TType GetType(TAny) const override { return declaration->GetType({}); }
  bool IsArray(TAny) const override { return declaration->IsArray({}); }
  bool IsDefaultValue(TAny) const override { return !value; }
  bool GetPropagated(TAny) const override { return !value; }
  const TCIMValue& GetValue(TAny) const override { return value ? *value : declaration->value.now; }
  const TCIMValue& GetPrevValue() const override { return previous ? *previous : GetValue({}); }
  bool IsPrevValueDifferent() const override { return previous.has_value(); }
  void SetValue(const TCIMValue& given, TAny) override {
    Check(given, "Inmem: SetValue");
    value = TCIMValue(given);
  }
  void SetPrevValue(const TCIMValue& given) override {
    if (!given.IsNull()) Check(given, "SetPrevValue");
    previous = TCIMValue(given);
  }
  void SetPrevValue() override { previous = TCIMValue(); }
  bool operator==(ICIMProperty& other) const override {
    return other.GetDeclaration({}) == declaration && *value == other.GetValue({});
  }
  bool operator<(ICIMProperty& other) const override {
    const auto others = other.GetDeclaration({});
    return others == declaration ? *value < other.GetValue({}) : declaration < others;
  }
  ICIMProperty& operator=(const ICIMProperty&) override { return *this; }

  void Check(const TCIMValue& given, TText operation) const {
    std::ostringstream why;
    if (GetType({}) != given.GetType()) {
      why << operation << ": decl is type " << GetType({}) << " but value is type "
          << given.GetType();
    } else if (given.IsReference()) {
      const auto declared = ReferencedClass(declaration->value.now);
      const auto referenced = ReferencedClass(given);
      if (referenced && declared && referenced->IsSubclassOf(declared, {})) return;
      why << operation << ": decl references type " << (declared ? declared->name : "")
          << " but value references " << (referenced ? referenced->name : "");
    } else {
      return;
    }
    LogModel(3, why.str());
    throw TVYRException(14);
  }
  std::string ToString() const override { return Show(GetValue({})); }
  std::string PrevValueToString() const override { return Show(GetPrevValue()); }
  std::vector<std::string> ToStringVector() const override { return {}; }
  TCIMValue Read(TText qualifier, TType type) const {
    const auto found = declaration->qualifiers.Find(qualifier);
    return found && found->value.now.GetType() == type ? found->value.now : TCIMValue();
  }
  /// By the qualifiers that the pool of names has.
  std::string Show(const TCIMValue& shown) const {
    if (shown.IsNull()) return Read("NULLDISPLAY", TType::kString).ToString(10);
    const TCIMValue base = Read("BASE", TType::kUInt8);
    return shown.ToString(base.IsNull() ? 10 : static_cast<unsigned char>(base));
  }
};

struct TModelInstance : ICIMInstance, boost::enable_shared_from_this<TModelInstance> {
  TPtr<TModelClass> cimClass = {};
  std::vector<TPtr<void>> uses = {};  ///< of the declarations; they go after the values
  TTable<std::string, TModelProperty> properties = {};

  void Initialize() {
    for (const auto& [key, entry] : cimClass->properties.entries) {
      properties.Insert(key, TModelProperty::Make(entry.element));
      uses.push_back(Use(entry.element, true));
    }
    try {
      cimClass->GetPropertyDecl("DateTimeOfCollection", {});
      SetPropertyValue("DateTimeOfCollection", TOSSpecific::GetLocalTime(), {});
    } catch (const TVYRException&) {
    }
  }
  void Validate(TAny) const override {
    cimClass->EnumerateKeyNames(
        [this](const std::string* key) {
          if (!GetProperty(*key, {})->GetValue({}).IsNull()) return true;
          LogModel(0, "Inmem: Instance " + cimClass->name + ": key property " + *key + " is NULL");
          throw TVYRException(18);
        },
        {});
    if (!cimClass->IsAssociation({})) return;
    for (const auto& entry : properties.entries) {
      const TCIMValue& value = entry.second.element->GetValue({});
      if (!value.IsReference() || Try([&] { return Resolve(value) != nullptr; })) continue;
      LogModel(0, "Inmem: Reference " + static_cast<TCIMReference>(value).GetPath() +
                      " doesn't point to anything!");
      throw TVYRException(15);
    }
  }
  void AddToNamespace(TAny) override {
    try {
      Validate({});
    } catch (const TVYRException&) {
      return LogModel(0, "Inmem: Instance " + cimClass->name + ": invalid references");
    }
    cimClass->AddInstance(shared_from_this());
  }
  void ModifyInstance(TPtr<ICIMInstance>, TAny) override {}
  void Delete(TAny) override { cimClass->RemoveInstance(shared_from_this()); }
  TCIMReference GetReference(TAny) const override {
    TCIMReference path({}, {});
    path.SetClass(cimClass);
    cimClass->EnumerateKeyNames(
        [&](const std::string* key) {
          path.AddKeyValue(*key, GetProperty(*key, {})->GetValue({}));
          return true;
        },
        {});
    return path;
  }
  TPtr<ICIMClass> GetClass(TAny) const override { return cimClass; }
  TPtr<ICIMProperty> GetProperty(TText name, TAny) const override {
    if (const auto held = properties.Find(name)) return held;
    if (Contains(name, "speedDuplex")) return Derive("speedDuplex", std::string("Unknown"));
    if (Contains(name, "Description")) return Derive("Description", std::string(" "));
    for (const char* status : {"CommunicationStatus", "DetailedStatus", "HealthState",
                               "OperatingStatus", "PrimaryStatus"}) {
      if (Contains(name, status)) return Derive(name, static_cast<unsigned short>(0));
    }
    throw TVYRException(15);
  }
  void SetPropertyValue(TText name, const TCIMValue& value, TAny) override {
    const auto held = properties.Find(name);
    if (held) return held->SetValue(value, {});
    if (!Contains(name, "speedDuplex")) throw TVYRException(15);
  }
  void EnumerateProperties(const TCIMPropertyCallback& callback, TAny) override {
    properties.Walk(false, true, callback);
  }
  TCIMValue InvokeMethod(TText, TCIMContext&, TAny) override { return {}; }
  bool operator==(ICIMInstance& other) const override { return other.GetClass({}) == cimClass; }
  bool operator<(ICIMInstance& other) const override { return cimClass < other.GetClass({}); }
  ICIMInstance& operator=(const ICIMInstance&) override { return *this; }

  TPtr<ICIMProperty> Derive(TText name, const TCIMValue& value) const {
    cimClass->AddPropertyDecl(cimClass->AllocatePropertyDecl(name, value, {}));
    return TModelProperty::Make(Demand(cimClass->properties.Find(name)));
  }
  static TPtr<ICIMInstance> Resolve(const TCIMValue& reference) {
    const auto found = static_cast<TCIMReference>(reference).GetCIMElement(false);
    return boost::static_pointer_cast<ICIMInstance>(found);
  }

  void EnumerateAssociationInstances(const TCIMInstanceCallback& callback, TText resultClass,
                                     TText role, TAny) override {
    const auto examine = [&](const TPtr<ICIMInstance>& found) {
      const auto refers = [&](const ICIMProperty& property) {
        const TCIMValue& value = property.GetValue({});
        if (!value.IsReference() || Resolve(value).get() != this) return false;
        callback(found);
        return true;
      };
      if (!role.empty()) return Try([&] { return refers(*found->GetProperty(role, {})); });
      for (const auto& entry : static_cast<TModelInstance&>(*found).properties.entries) {
        if (Try([&] { return refers(*entry.second.element); })) break;
      }
      return true;
    };
    cimClass->EnumerateAssociationClasses(
        [&](const TPtr<ICIMClass>& association) {
          association->EnumerateInstances(examine, false, {});
          return true;
        },
        resultClass, role, {});
  }
  void EnumerateAssociatedInstances(const TCIMInstanceCallback& callback, TText assocClass,
                                    TText resultClass, TText role, TText resultRole,
                                    TAny) override {
    TPtr<ICIMClass> wanted;
    const auto find = [&] {
      const auto space = cimClass->GetNamespace({});
      return space && (wanted = space->GetClass(resultClass, {}));
    };
    if (!Try(find)) return;
    const auto deliver = [&](const TCIMValue& value) {
      const auto referenced = ReferencedClass(value);
      if (!referenced || !referenced->IsSubclassOf(wanted, {})) return false;
      callback(Resolve(value));
      return true;
    };
    const auto examine = [&](const TPtr<ICIMInstance>& found) {
      if (!resultRole.empty()) {
        return Try([&] { return deliver(found->GetProperty(resultRole, {})->GetValue({})); });
      }
      DeliverFarEnd(static_cast<TModelInstance&>(*found), Normalize(role), deliver);
      return true;
    };
    EnumerateAssociationInstances(examine, assocClass, "", {});
  }
  void DeliverFarEnd(const TModelInstance& found, TText role,
                     const std::function<bool(const TCIMValue&)>& deliver) const {
    bool isOwnFound = false;
    const auto isOwn = [&](TText key, const TCIMValue& value) {
      if (isOwnFound || !value.IsReference()) return false;
      if (!role.empty()) return key == role;
      return ReferencedClass(value) == cimClass && Resolve(value).get() == this;
    };
    for (const auto& [key, entry] : found.properties.entries) {
      const TModelProperty& property = *entry.element;
      const bool isDelivered = Try([&, &end = key] {
        const bool isThisEnd = isOwn(end, property.GetValue({}));
        isOwnFound = isOwnFound || isThisEnd;
        return !isThisEnd && deliver(property.GetValue({}));
      });
      if (isDelivered) return;
    }
  }
};

inline TPtr<ICIMInstance> TModelClass::AllocateInstance(TAny) {
  const auto made = boost::make_shared<TModelInstance>();
  made->cimClass = shared_from_this();
  made->Initialize();
  return made;
}

inline void TModelClass::AddInstance(TPtr<ICIMInstance> added) {
  if (space.expired()) return;
  instances.Put(added->GetReference({}).GetPath(),
                boost::static_pointer_cast<TModelInstance>(added));
}

inline void TModelClass::EnumerateInstances(const TCIMInstanceCallback& callback, bool deep, TAny) {
  instances.Walk(false, false, callback);
  if (!deep) return;
  subClasses.Walk(false, false, [&](const TPtr<TModelClass>& subClass) {
    subClass->EnumerateInstances(callback, true, {});
    return true;
  });
}

struct TModelNamespace : TModelStore, boost::enable_shared_from_this<TModelNamespace> {
  std::vector<boost::weak_ptr<TModelClass>> made = {};

  static TPtr<ICIMNamespace> Allocate(bool redefines) {
    const auto space = boost::make_shared<TModelNamespace>();
    space->redefines = redefines;
    space->root = boost::static_pointer_cast<TModelClass>(space->AllocateClass("<root>", {}, {}));
    return space;
  }
  ~TModelNamespace() override {
    for (auto at = made.rbegin(); at != made.rend(); ++at) {
      if (const auto cimClass = at->lock()) cimClass->ReleaseLinks();
    }
  }
  TPtr<ICIMClass> AllocateClass(TText name, TPtr<ICIMClass> super, TAny) override {
    TPtr<ICIMClass> present;
    try {
      present = GetClass(name, {});
    } catch (const TVYRException&) {
    }
    if (present) {
      static_cast<TModelClass&>(*present).Inherit(false);
      return present;
    }
    const auto added = boost::make_shared<TModelClass>();
    made.emplace_back(added);
    added->name = name;
    added->space = shared_from_this();
    added->super = super ? boost::static_pointer_cast<TModelClass>(super) : root;
    added->Inherit(true);
    return added;
  }
  TPtr<ICIMClass> GetClass(TText name, TAny) override {
    return name.empty() || name == "<root>" ? root : Demand(classes.Find(name));
  }
  void EnumerateRootClasses(const TCIMClassCallback& callback, TAny) override {
    root->EnumerateSubClasses(callback, false, {});
  }
  TPtr<ICIMQualifierDecl> AllocateQualifierDecl(TText name, const TCIMValue& value,
                                                ICIMQualifierDecl::EScope scope, EFlavor flavor,
                                                TAny) override {
    const auto added = boost::make_shared<TModelQualifierDecl>();
    added->space = shared_from_this();
    added->name = name;
    added->value = value;
    added->scope = scope;
    added->flavor = flavor;
    return added;
  }
  TPtr<ICIMQualifierDecl> GetQualifierDecl(TText name, TAny) override {
    return qualifierDecls.Find(name);
  }
  void EnumerateQualifierDecls(const TCIMQualifierDeclCallback& callback, TAny) override {
    qualifierDecls.Walk(false, false, callback);
  }
  TPtr<ICIMInstance> GetInstance(const TCIMReference& path, TAny) override {
    const auto cimClass =
        boost::static_pointer_cast<TModelClass>(GetClass(path.GetClassName(), {}));
    return cimClass->instances.FindKey(path.GetPath());
  }
  void ClearInstances() override {
    for (const auto& entry : classes.entries) entry.second.element->instances.Clear();
  }

  TPtr<INamespaceProvider> GetNamespaceProvider(TAny) override { return {}; }
  void SetUpcallNamespace(TPtr<ICIMNamespace>, TAny) override {}
  void AddUnderlyingNamespace(TPtr<ICIMNamespace>, TAny) override { throw TVYRException(1); }
  void EnumerateProviders(const TCIMProviderCallback&, TAny) override {}
  void Subscribe(TPtr<ICIMIndicationFilter>, const TCIMInstanceCallback&, TAny) override {
    throw TVYRException(1);
  }
  void DeleteInstance(const TCIMReference&, TAny) override { throw TVYRException(1); }
  void ModifyInstance(const TCIMReference&, TCIMContext, TAny) override { throw TVYRException(1); }
  void ExecuteQuery(const TCIMInstanceCallback&, std::string&, std::string&, TAny) override {
    throw TVYRException(1);
  }
  ICIMNamespace& operator=(ICIMNamespace&) override { return *this; }
};

}  // namespace NZELVYR20

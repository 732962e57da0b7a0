#pragma once

#include <algorithm>

#include "TModelElements.h"

namespace NZELVYR20 {

inline TPtr<TModelClass> ReferencedClass(const TCIMValue& value);

struct TModelClass : TModelNamed<EModelKind::kClass, ICIMClass, TModelClass> {
  boost::weak_ptr<TModelStore> space = {};
  boost::weak_ptr<TModelClass> super = {};
  const void* identity = nullptr;  ///< the address of the plug-in's class
  TTable<std::string, TModelPropertyDecl> properties = {};
  TTable<unsigned, TModelClass> subClasses = {};
  TTable<const void*, TModelClass> associations = {};  ///< by identity
  TTable<std::string, ICIMInstance> instances = {};
  TTable<std::string, TModelMethodDecl> methods = {};
  bool isInNamespace = false;

  void Inherit(bool isFresh) {
    const auto above = super.lock();
    if (!above) {
      const auto root = space.lock()->root;
      if (root.get() != this) super = root;
      return;
    }
    properties.InsertAll(above->properties);
    methods.InsertAll(above->methods);
    for (const auto& [key, entry] : above->qualifiers.entries) {
      if ((entry.element->flavor & 2U) == 0 || (isFresh && key == "abstract")) continue;
      const auto copy = boost::make_shared<TModelQualifier>(*entry.element);
      copy->owner = shared_from_this();
      copy->isPropagated = true;
      qualifiers.Insert(key, copy);
    }
  }
  /// What holds in a circle is parted, since the namespace goes.
  void LetGo() {
    instances.Clear(), subClasses.Clear(), associations.Clear();
    qualifiers.Clear(), properties.Clear(), methods.Clear();
  }

  std::vector<TPtr<TModelClass>> GetRegistrations() const {
    std::vector<TPtr<TModelClass>> ends;
    for (const auto& entry : properties.entries) {
      if (const auto end = ReferencedClass(entry.second.element->value)) ends.push_back(end);
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
    return end && ReferencedClass(end->value).get() == this;
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
    if (!associations.Erase(association.identity)) throw TVYRException(15);
  }
  void ModifyClass(TPtr<ICIMClass>, TAny) override {}
  void Validate(TAny) const override {
    if (IsAbstract({})) return;
    for (const auto& entry : properties.entries) {
      if (entry.second.element->IsSet("KEY")) return;
    }
    Refuse(7, 3, "Class " + name + " has no keys");
  }
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
    return filter.empty() ? TPtr<ICIMClass>() : space.lock()->GetClass(filter, {});
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
      const auto end = ReferencedClass(entry.element->value);
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

  TPtr<ICIMPropertyDecl> AllocatePropertyDecl(TText given, const TCIMValue& value, TAny) override {
    return TModelPropertyDecl::Make(shared_from_this(), given, value);
  }
  TPtr<ICIMMethodDecl> AllocateMethodDecl(TText given, TType type, TAny) override {
    return TModelMethodDecl::Make(shared_from_this(), given, TCIMValue::Null(type));
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
  TPtr<ICIMInstance> AllocateInstance(TAny) override;
  void AddInstance(TPtr<ICIMInstance> added) override {
    instances.Put(added->GetReference({}).GetPath(), added);
  }
  void RemoveInstance(TPtr<ICIMInstance> removed) override {
    instances.Erase(removed->GetReference({}).GetPath());
  }
  void EnumerateInstances(const TCIMInstanceCallback& callback, bool deep, TAny) override {
    instances.Walk(false, false, callback);
    if (!deep) return;
    subClasses.Walk(false, false, [&](const TPtr<TModelClass>& subClass) {
      subClass->EnumerateInstances(callback, true, {});
      return true;
    });
  }

  void AddPropertyDecl(TPtr<ICIMPropertyDecl> given) override;
  void RemovePropertyDecl(TPtr<ICIMPropertyDecl> removed) override {
    properties.Remove(removed->GetName({}));
  }
  void AddMethodDecl(TPtr<ICIMMethodDecl> given) override;
  void RemoveMethodDecl(TPtr<ICIMMethodDecl> removed) override {
    methods.Remove(removed->GetName({}));
  }
};

inline TPtr<TModelClass> ReferencedClass(const TCIMValue& value) {
  return boost::static_pointer_cast<TModelClass>(value.GetReferencedClass());
}

}  // namespace NZELVYR20

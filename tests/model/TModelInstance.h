#pragma once

#include <optional>
#include <sstream>

#include "ICIMInstance.h"
#include "TCIMReference.h"
#include "TModelClass.h"
#include "TOSSpecific.h"

namespace NZELVYR20 {

struct TModelProperty : TModelOf<ICIMProperty> {
  TPtr<TModelPropertyDecl> declaration;
  std::optional<TCIMValue> value = {}, previous = {};

  explicit TModelProperty(const TPtr<TModelPropertyDecl>& declared) : declaration(declared) {}
  TPtr<const ICIMPropertyDecl> GetDeclaration(TAny) const override { return declaration; }
  TType GetType(TAny) const override { return declaration->GetType({}); }
  bool IsArray(TAny) const override { return declaration->IsArray({}); }
  bool IsDefaultValue(TAny) const override { return !value; }
  bool GetPropagated(TAny) const override { return !value; }
  const TCIMValue& GetValue(TAny) const override { return value ? *value : declaration->value; }
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
  void Check(const TCIMValue& given, TText operation) const {
    std::ostringstream why;
    if (GetType({}) != given.GetType()) {
      why << operation << ": decl is type " << GetType({}) << " but value is type "
          << given.GetType();
    } else if (given.IsReference()) {
      const auto declared = ReferencedClass(declaration->value);
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
  std::string ToString() const override { return {}; }
  std::string PrevValueToString() const override { return {}; }
  std::vector<std::string> ToStringVector() const override { return {}; }
};

struct TModelInstance : TModelOf<ICIMInstance>, boost::enable_shared_from_this<TModelInstance> {
  TPtr<TModelClass> cimClass = {};
  TTable<std::string, TModelProperty> properties = {};

  void Initialize() {
    for (const auto& [key, entry] : cimClass->properties.entries) {
      properties.Insert(key, boost::make_shared<TModelProperty>(entry.element));
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
          Refuse(18, 0, "Instance " + cimClass->name + ": key property " + *key + " is NULL");
        },
        {});
    if (!cimClass->IsAssociation({})) return;
    for (const auto& entry : properties.entries) {
      const TCIMValue& value = entry.second.element->GetValue({});
      if (!value.IsReference() || Try([&] { return Resolve(value) != nullptr; })) continue;
      Refuse(15, 0,
             "Reference " + static_cast<TCIMReference>(value).GetPath() +
                 " doesn't point to anything!");
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
  TPtr<ICIMProperty> Derive(TText name, const TCIMValue& value) const {
    cimClass->AddPropertyDecl(cimClass->AllocatePropertyDecl(name, value, {}));
    return boost::make_shared<TModelProperty>(Demand(cimClass->properties.Find(name)));
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
      wanted = cimClass->GetNamespace({})->GetClass(resultClass, {});
      return true;
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

}  // namespace NZELVYR20

#pragma once

#include "TModelDeclare.h"
#include "TModelInstance.h"

namespace NZELVYR20 {

struct TModelNamespace : TModelStore, boost::enable_shared_from_this<TModelNamespace> {
  std::vector<boost::weak_ptr<TModelClass>> made = {};

  static TPtr<ICIMNamespace> Allocate(bool redefines) {
    const auto space = boost::make_shared<TModelNamespace>();
    space->redefines = redefines;
    space->root = boost::static_pointer_cast<TModelClass>(space->AllocateClass("<root>", {}, {}));
    return space;
  }
  ~TModelNamespace() override {
    for (const auto& held : made) {
      if (const auto cimClass = held.lock()) cimClass->LetGo();
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

  // Nobody asks for these here.
  TPtr<INamespaceProvider> GetNamespaceProvider(TAny) override { return {}; }
  void SetUpcallNamespace(TPtr<ICIMNamespace>, TAny) override {}
  void AddUnderlyingNamespace(TPtr<ICIMNamespace>, TAny) override {}
  void EnumerateProviders(const TCIMProviderCallback&, TAny) override {}
  void Subscribe(TPtr<ICIMIndicationFilter>, const TCIMInstanceCallback&, TAny) override {}
  void DeleteInstance(const TCIMReference&, TAny) override {}
  void ModifyInstance(const TCIMReference&, TCIMContext, TAny) override {}
  void ExecuteQuery(const TCIMInstanceCallback&, std::string&, std::string&, TAny) override {}
  ICIMNamespace& operator=(ICIMNamespace&) override { return *this; }
};

/// A host's own namespace, in which paths lead where the world says.
struct TModelHost : TModelNamespace {
  std::function<TPtr<ICIMInstance>(const TCIMReference&)> answer = {};

  TPtr<ICIMInstance> GetInstance(const TCIMReference& path, TAny) override { return answer(path); }
};

}  // namespace NZELVYR20

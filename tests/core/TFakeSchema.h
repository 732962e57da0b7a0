#pragma once

#include <algorithm>
#include <boost/make_shared.hpp>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "ICIMMethodDecl.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TVYRException.h"

// The least of a schema that paths need: classes with typed properties, some of them keys, in a
// namespace without instances. All else is status 1.

namespace NZELVYR20 {

[[noreturn]] inline void Unsupported() { throw TVYRException(TVYRStatusCode::kNotSupported); }

#define NOT_NEEDED \
  override { Unsupported(); }

/// The status that the action throws; 0 where it throws none.
template <class TAction>
int StatusOf(const TAction& action) {
  try {
    action();
  } catch (const TVYRException& exception) {
    return exception.GetStatusCode();
  }
  return TVYRStatusCode::kSuccess;
}

inline std::string Lower(std::string name) {
  std::transform(name.begin(), name.end(), name.begin(),
                 [](unsigned char c) { return tolower(c); });
  return name;
}

template <class TMap>
typename TMap::mapped_type Find(const TMap& map, const std::string& name) {
  const auto entry = map.find(Lower(name));
  if (entry == map.end()) throw TVYRException(TVYRStatusCode::kNotFound);
  return entry->second;
}

using TString = const std::string&;
using TClass = boost::shared_ptr<ICIMClass>;
using TDecl = boost::shared_ptr<const ICIMQualifierDecl>;
using TInstance = boost::shared_ptr<ICIMInstance>;
using TMethodDecl = boost::shared_ptr<ICIMMethodDecl>;
using TNamespace = boost::shared_ptr<ICIMNamespace>;
using TProperty = boost::shared_ptr<ICIMProperty>;
using TPropertyDecl = boost::shared_ptr<ICIMPropertyDecl>;
using TQualifier = boost::shared_ptr<ICIMQualifier>;
using EFlavor = ICIMQualifierDecl::EFlavor;

template <class TInterface>
class TWithoutQualifiers : public TInterface {
 public:
  using TInterface::operator=;
  void AddQualifier(TQualifier, TCIMContext) NOT_NEEDED;
  TQualifier AllocateQualifier(TDecl, const TCIMValue&, TCIMContext) NOT_NEEDED;
  TQualifier AllocateQualifier(TDecl, const TCIMValue&, EFlavor, TCIMContext) NOT_NEEDED;
  TQualifier GetQualifier(const std::string&, TCIMContext) const NOT_NEEDED;
  void EnumerateQualifiers(const TCIMQualifierCallback&, TCIMContext) const NOT_NEEDED;
  TQualifier GetQualifier(const std::string&, bool&, TCIMContext) const NOT_NEEDED;
};

class TFakePropertyDecl : public TWithoutQualifiers<ICIMPropertyDecl> {
 public:
  TFakePropertyDecl(std::string name, TCIMValue::TCIMType type)
      : name_(std::move(name)), type_(type) {}

  const std::string& GetName(TCIMContext) const override { return name_; }
  TCIMValue::TCIMType GetType(TCIMContext) const override { return type_; }
  bool IsArray(TCIMContext) const override { return type_.IsArray(); }

  void Validate(TCIMContext) NOT_NEEDED;
  void AddToClass(TCIMContext) NOT_NEEDED;
  void RemoveFromClass(TCIMContext) NOT_NEEDED;
  TClass GetClass(TCIMContext) const NOT_NEEDED;
  const TCIMValue& GetDefaultValue(TCIMContext) const NOT_NEEDED;
  void SetDefaultValue(const TCIMValue&, TCIMContext) NOT_NEEDED;
  bool operator==(ICIMPropertyDecl&) const NOT_NEEDED;
  bool operator<(ICIMPropertyDecl&) const NOT_NEEDED;
  ICIMPropertyDecl& operator=(const ICIMPropertyDecl&) NOT_NEEDED;

 private:
  std::string name_;
  TCIMValue::TCIMType type_;
};

class TFakeClass : public TWithoutQualifiers<ICIMClass> {
 public:
  TFakeClass(std::string name, const boost::weak_ptr<ICIMNamespace>& nameSpace)
      : name_(std::move(name)), namespace_(nameSpace) {}

  void AddKey(const std::string& name, TCIMValue::TCIMType type) {
    AddProperty(name, type);
    keyNames_.push_back(name);
  }
  void AddProperty(const std::string& name, TCIMValue::TCIMType type) {
    properties_[Lower(name)] = boost::make_shared<TFakePropertyDecl>(name, type);
  }

  TString GetName(TCIMContext) const override { return name_; }
  TNamespace GetNamespace(TCIMContext) const override { return namespace_.lock(); }
  void EnumerateKeyNames(const TCIMKeyNameCallback& callback, TCIMContext) override {
    std::all_of(keyNames_.begin(), keyNames_.end(), [&](TString name) { return callback(&name); });
  }
  TPropertyDecl GetPropertyDecl(TString name, TCIMContext) const override {
    return Find(properties_, name);
  }

  void Validate(TCIMContext) const NOT_NEEDED;
  void AddToNamespace(TCIMContext) NOT_NEEDED;
  void RemoveFromNamespace(TCIMContext) NOT_NEEDED;
  void ModifyClass(TClass, TCIMContext) NOT_NEEDED;
  bool IsAssociation(TCIMContext) const NOT_NEEDED;
  bool IsAbstract(TCIMContext) const NOT_NEEDED;
  bool IsRootClass(TCIMContext) const NOT_NEEDED;
  TClass GetSuperClass(TCIMContext) const NOT_NEEDED;
  void EnumerateSubClasses(const TCIMClassCallback&, bool, TCIMContext) NOT_NEEDED;
  bool IsSubclassOf(boost::shared_ptr<const ICIMClass>, TCIMContext) const NOT_NEEDED;
  void EnumerateAssociatedClasses(const TCIMClassCallback&, TString, TString, TString, TString,
                                  TCIMContext) NOT_NEEDED;
  void EnumerateAssociationClasses(const TCIMClassCallback&, TString, TString,
                                   TCIMContext) NOT_NEEDED;
  TPropertyDecl AllocatePropertyDecl(TString, const TCIMValue&, TCIMContext) NOT_NEEDED;
  void EnumeratePropertyDecls(const TCIMPropertyDeclCallback&, TCIMContext) const NOT_NEEDED;
  TProperty GetProperty(TString, TCIMContext) const NOT_NEEDED;
  void SetPropertyValue(TString, const TCIMValue&, TCIMContext) NOT_NEEDED;
  void EnumerateStaticProperties(const TCIMPropertyCallback&, TCIMContext) NOT_NEEDED;
  TInstance AllocateInstance(TCIMContext) NOT_NEEDED;
  void EnumerateInstances(const TCIMInstanceCallback&, bool, TCIMContext) NOT_NEEDED;
  TMethodDecl AllocateMethodDecl(TString, TCIMValue::TCIMType, TCIMContext) NOT_NEEDED;
  TMethodDecl GetMethodDecl(TString, TCIMContext) const NOT_NEEDED;
  void EnumerateMethodDecls(const TCIMMethodDeclCallback&, TCIMContext) const NOT_NEEDED;
  TCIMValue InvokeMethod(TString, TCIMContext&, TCIMContext) NOT_NEEDED;
  bool operator==(ICIMClass&) const NOT_NEEDED;
  bool operator<(ICIMClass&) const NOT_NEEDED;
  ICIMClass& operator=(const ICIMClass&) NOT_NEEDED;
  void AddChildClass(TClass) NOT_NEEDED;
  void RemoveChildClass(TClass) NOT_NEEDED;
  void AddInstance(TInstance) NOT_NEEDED;
  void RemoveInstance(TInstance) NOT_NEEDED;
  void AddAssociationClass(TClass) NOT_NEEDED;
  void RemoveAssociationClass(TClass) NOT_NEEDED;
  void AddPropertyDecl(TPropertyDecl) NOT_NEEDED;
  void RemovePropertyDecl(TPropertyDecl) NOT_NEEDED;
  void AddMethodDecl(TMethodDecl) NOT_NEEDED;
  void RemoveMethodDecl(TMethodDecl) NOT_NEEDED;

 private:
  std::string name_;
  boost::weak_ptr<ICIMNamespace> namespace_;
  std::vector<std::string> keyNames_;
  std::map<std::string, TPropertyDecl> properties_;
};

class TFakeNamespace : public ICIMNamespace {
 public:
  std::map<std::string, TClass> classes;  ///< by name in lower case
  std::vector<std::string> wanted;        ///< the paths of the instances that were asked for

  TClass GetClass(TString name, TCIMContext) override { return Find(classes, name); }
  TInstance GetInstance(const TCIMReference& path, TCIMContext) override {
    wanted.push_back(path.GetPath());
    return {};
  }

  boost::shared_ptr<INamespaceProvider> GetNamespaceProvider(TCIMContext) NOT_NEEDED;
  void SetUpcallNamespace(TNamespace, TCIMContext) NOT_NEEDED;
  void AddUnderlyingNamespace(TNamespace, TCIMContext) NOT_NEEDED;
  TClass AllocateClass(TString, TClass, TCIMContext) NOT_NEEDED;
  void EnumerateRootClasses(const TCIMClassCallback&, TCIMContext) NOT_NEEDED;
  void EnumerateProviders(const TCIMProviderCallback&, TCIMContext) NOT_NEEDED;
  boost::shared_ptr<ICIMQualifierDecl> AllocateQualifierDecl(TString, const TCIMValue&,
                                                             ICIMQualifierDecl::EScope,
                                                             ICIMQualifierDecl::EFlavor,
                                                             TCIMContext) NOT_NEEDED;
  boost::shared_ptr<ICIMQualifierDecl> GetQualifierDecl(TString, TCIMContext) NOT_NEEDED;
  void EnumerateQualifierDecls(const TCIMQualifierDeclCallback&, TCIMContext) NOT_NEEDED;
  void Subscribe(boost::shared_ptr<ICIMIndicationFilter>, const TCIMInstanceCallback&,
                 TCIMContext) NOT_NEEDED;
  void DeleteInstance(const TCIMReference&, TCIMContext) NOT_NEEDED;
  void ModifyInstance(const TCIMReference&, TCIMContext, TCIMContext) NOT_NEEDED;
  void ExecuteQuery(const TCIMInstanceCallback&, std::string&, std::string&,
                    TCIMContext) NOT_NEEDED;
  void ClearInstances() NOT_NEEDED;
  ICIMNamespace& operator=(ICIMNamespace&) NOT_NEEDED;
};

}  // namespace NZELVYR20

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/algorithm/string/case_conv.hpp>
#include <boost/make_shared.hpp>
#include <boost/preprocessor.hpp>

#include "ICIMNamespace.h"
#include "ICIMPropertyDecl.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"
#include "TVYRException.h"

namespace NZELVYR20 {

#define REFUSED_ONE(R, DATA, OPERATION) \
  OPERATION override { throw TVYRException(TVYRStatusCode::kNotSupported); }
/// Implements operations that no test needs.
#define REFUSED(...) BOOST_PP_SEQ_FOR_EACH(REFUSED_ONE, , BOOST_PP_VARIADIC_TO_SEQ(__VA_ARGS__))

template <class TPointee>
using TPtr = boost::shared_ptr<TPointee>;
using TClass = TPtr<ICIMClass>;
using TCtx = TCIMContext;
using TDecl = ICIMQualifierDecl;
using TEachClass = const TCIMClassCallback&;
using TEachInstance = const TCIMInstanceCallback&;
using TKeys = std::vector<std::pair<std::string, TCIMValue>>;
using TPath = const TCIMReference&;
using TQualifier = TPtr<ICIMQualifier>;
using TText = const std::string&;
using TType = TCIMValue::TCIMType;
using TValue = const TCIMValue&;
using TValues = std::vector<TCIMValue>;

/// The least of a schema that paths need, in one: a property with its type, a class with its
/// properties, or a namespace with its classes, whose one answer to instances is the path asked
/// for.
struct TFakeSchema : ICIMNamespace, ICIMClass, ICIMPropertyDecl {
  explicit TFakeSchema(std::string givenName, TType givenType = {}, TPtr<ICIMNamespace> owner = {})
      : name(std::move(givenName)), type(givenType), nameSpace(owner) {}

  void Add(const TPtr<TFakeSchema>& part) { parts[boost::to_lower_copy(part->name)] = part; }

  TText GetName(TCtx) const override { return name; }
  TType GetType(TCtx) const override { return type; }
  TPtr<ICIMNamespace> GetNamespace(TCtx) const override { return nameSpace.lock(); }
  TClass GetClass(TText part, TCtx) override { return parts[boost::to_lower_copy(part)]; }
  TPtr<ICIMInstance> GetInstance(TPath path, TCtx) override {
    throw std::runtime_error(name + ": " + path.GetPath());
  }
  TPtr<ICIMPropertyDecl> GetPropertyDecl(TText part, TCtx) const override {
    const auto found = parts.find(boost::to_lower_copy(part));
    return found == parts.end() ? throw TVYRException(TVYRStatusCode::kNotFound) : found->second;
  }
  void EnumerateKeyNames(const TCIMKeyNameCallback& callback, TCtx) override {
    std::all_of(parts.begin(), parts.end(), [&](const auto& part) {
      return part.second->type == TType::kNone || callback(&part.second->name);
    });
  }

  std::string name;
  TType type;  ///< none for a property that is no key
  boost::weak_ptr<ICIMNamespace> nameSpace;
  std::map<std::string, TPtr<TFakeSchema>> parts;  ///< by name in lower case

  // In the order in which they take the fewest lines.
  REFUSED(void EnumerateAssociatedClasses(TEachClass, TText, TText, TText, TText, TCtx),
          void EnumeratePropertyDecls(const TCIMPropertyDeclCallback&, TCtx) const,
          void EnumerateMethodDecls(const TCIMMethodDeclCallback&, TCtx) const,
          void EnumerateStaticProperties(const TCIMPropertyCallback&, TCtx),
          bool IsAbstract(TCtx) const,
          void EnumerateAssociationClasses(TEachClass, TText, TText, TCtx),
          TPtr<ICIMPropertyDecl> AllocatePropertyDecl(TText, TValue, TCtx),
          TPtr<ICIMMethodDecl> AllocateMethodDecl(TText, TType, TCtx), bool IsRootClass(TCtx) const,
          TPtr<ICIMMethodDecl> GetMethodDecl(TText, TCtx) const, bool operator==(ICIMClass&) const,
          bool IsSubclassOf(TPtr<const ICIMClass>, TCtx) const, void RemoveAssociationClass(TClass),
          void EnumerateInstances(TEachInstance, bool, TCtx), void AddInstance(TPtr<ICIMInstance>),
          TPtr<ICIMProperty> GetProperty(TText, TCtx) const, ICIMClass& operator=(const ICIMClass&),
          void EnumerateSubClasses(TEachClass, bool, TCtx), void RemoveInstance(TPtr<ICIMInstance>),
          void RemovePropertyDecl(TPtr<ICIMPropertyDecl>), void AddMethodDecl(TPtr<ICIMMethodDecl>),
          void AddPropertyDecl(TPtr<ICIMPropertyDecl>), void RemoveMethodDecl(TPtr<ICIMMethodDecl>),
          void SetPropertyValue(TText, TValue, TCtx), TCIMValue InvokeMethod(TText, TCtx&, TCtx),
          TPtr<ICIMInstance> AllocateInstance(TCtx), TClass GetSuperClass(TCtx) const,
          bool operator<(ICIMClass&) const, void AddAssociationClass(TClass),
          void RemoveFromNamespace(TCtx), void ModifyClass(TClass, TCtx), void Validate(TCtx) const,
          bool IsAssociation(TCtx) const, void RemoveChildClass(TClass), void AddChildClass(TClass),
          void AddToNamespace(TCtx), bool operator<(ICIMPropertyDecl&) const)
  REFUSED(TPtr<TDecl> AllocateQualifierDecl(TText, TValue, TDecl::EScope, TDecl::EFlavor, TCtx),
          TQualifier AllocateQualifier(TPtr<const TDecl>, TValue, TDecl::EFlavor, TCtx),
          void EnumerateQualifierDecls(const TCIMQualifierDeclCallback&, TCtx), void Validate(TCtx),
          void EnumerateQualifiers(const TCIMQualifierCallback&, TCtx) const, void AddToClass(TCtx),
          void ExecuteQuery(TEachInstance, std::string&, std::string&, TCtx), void ClearInstances(),
          void Subscribe(TPtr<ICIMIndicationFilter>, TEachInstance, TCtx), bool IsArray(TCtx) const,
          TQualifier AllocateQualifier(TPtr<const TDecl>, TValue, TCtx), void RemoveFromClass(TCtx),
          void EnumerateProviders(const TCIMProviderCallback&, TCtx), TClass GetClass(TCtx) const,
          void AddUnderlyingNamespace(TPtr<ICIMNamespace>, TCtx), void DeleteInstance(TPath, TCtx),
          ICIMPropertyDecl& operator=(const ICIMPropertyDecl&), void AddQualifier(TQualifier, TCtx),
          TPtr<INamespaceProvider> GetNamespaceProvider(TCtx), TValue GetDefaultValue(TCtx) const,
          void SetUpcallNamespace(TPtr<ICIMNamespace>, TCtx), void SetDefaultValue(TValue, TCtx),
          TQualifier GetQualifier(TText, bool&, TCtx) const, void ModifyInstance(TPath, TCtx, TCtx),
          void EnumerateRootClasses(TEachClass, TCtx), TQualifier GetQualifier(TText, TCtx) const,
          TClass AllocateClass(TText, TClass, TCtx), TPtr<TDecl> GetQualifierDecl(TText, TCtx),
          bool operator==(ICIMPropertyDecl&) const, ICIMNamespace& operator=(ICIMNamespace&))
};

constexpr const char* kNotFound = "The element was not found.";
constexpr const char* kTypeMismatch = "The type does not match.";

inline TClass MakeClass(TText name) { return boost::make_shared<TFakeSchema>(name); }

inline TCIMReference MakePath(const TClass& cimClass, const TKeys& keys = {}) {
  TCIMReference path({}, {});
  path.SetClass(cimClass);
  for (const auto& key : keys) path.AddKeyValue(key.first, key.second);
  return path;
}

/// What the action returns or, where it throws, the message of that.
template <class TAction>
std::string ResultOf(const TAction& action) {
  try {
    return action();
  } catch (const std::exception& exception) {
    return exception.what();
  }
}

}  // namespace NZELVYR20

#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <boost/shared_ptr.hpp>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamedElement.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ICIMQualifierDecl.h"
#include "PluginNamespace.h"
#include "TOutcome.h"

namespace NZELVYR20 {

using TClass = boost::shared_ptr<ICIMClass>;
using TInstance = boost::shared_ptr<ICIMInstance>;
using TPropertyDecl = boost::shared_ptr<ICIMPropertyDecl>;
using TNames = std::vector<std::string>;
using EFlavor = ICIMQualifierDecl::EFlavor;

/// A callback for every enumeration: notes names, and the paths of instances.
struct TNamer {
  std::function<bool(const std::string& name)> note;

  bool operator()(const std::string* name) const { return note(*name); }
  bool operator()(const TInstance& instance) const {
    return note(instance->BuildPath({}).GetPath());
  }
  bool operator()(const boost::shared_ptr<ICIMProperty>& property) const {
    return note(property->GetDeclaration({})->GetName({}));
  }
  template <class TElement>
  bool operator()(const boost::shared_ptr<TElement>& element) const {
    return note(element->GetName({}));
  }
};

/// A namespace of its own for each test, the verbs with which collectors fill one, and a record of
/// what the repository logs.
class TRepositoryTest : public ::testing::Test {
 protected:
  /// Flavor with which qualifiers are attached unless a test says otherwise.
  static constexpr EFlavor kDefaultFlavor =
      ICIMQualifierDecl::kOverridable | ICIMQualifierDecl::kToSubclass;

  explicit TRepositoryTest(bool allowRedefinition = false)
      : space(NewNamespace(allowRedefinition)) {}

  static boost::shared_ptr<ICIMNamespace> NewNamespace(bool allowRedefinition) {
    return AllocatePluginNamespace(allowRedefinition);
  }

  template <class TOperation>
  TOutcome Try(TOperation operation) {
    log.Take();
    TOutcome outcome;
    try {
      operation();
    } catch (const TVYRException& failure) {
      outcome.status = failure.GetStatusCode();
    }
    outcome.log = log.Take();
    return outcome;
  }

  static TOutcome InvalidName(const std::string& name, int status = 25) {
    return TOutcome::Logged(status, 0, "Inmem: CIM name '" + name + "' is invalid");
  }

  /// A qualifier declaration, not added.
  boost::shared_ptr<ICIMQualifierDecl> NewQualifierDecl(const std::string& name,
                                                        const TCIMValue& value = TCIMValue(true),
                                                        EFlavor flavor = kDefaultFlavor) {
    return space->AllocateQualifierDecl(name, value, ICIMQualifierDecl::kAny, flavor, {});
  }

  /// A qualifier of the element, not attached.
  boost::shared_ptr<ICIMQualifier> NewQualifier(ICIMNamedElement& element, const std::string& name,
                                                const TCIMValue& value,
                                                EFlavor flavor = kDefaultFlavor) {
    return element.AllocateQualifier(NewQualifierDecl(name, value, flavor), value, flavor, {});
  }

  void Qualify(ICIMNamedElement& element, const std::string& name,
               const TCIMValue& value = TCIMValue(true), EFlavor flavor = kDefaultFlavor) {
    NewQualifier(element, name, value, flavor)->AddToClassOrProperty({});
  }

  TClass NewClass(const std::string& name, const TClass& superClass = {}) {
    return space->AllocateClass(name, superClass, {});
  }

  /// A declaration with flag qualifiers, not added.
  TPropertyDecl NewPropertyDecl(const TClass& cimClass, const std::string& name,
                                const TCIMValue& defaultValue,
                                std::initializer_list<const char*> flags = {}) {
    auto declaration = cimClass->AllocatePropertyDecl(name, defaultValue, {});
    for (const char* flag : flags) Qualify(*declaration, flag);
    return declaration;
  }

  TPropertyDecl DeclareProperty(const TClass& cimClass, const std::string& name,
                                const TCIMValue& defaultValue,
                                std::initializer_list<const char*> flags = {}) {
    auto declaration = NewPropertyDecl(cimClass, name, defaultValue, flags);
    declaration->AddToClass({});
    return declaration;
  }

  /// A class with the string key "Id", added.
  TClass DefineClass(const std::string& name, const TClass& superClass = {}) {
    auto cimClass = NewClass(name, superClass);
    DeclareProperty(cimClass, "Id", TCIMValue::Null(TCIMValue::TCIMType::kString), {"Key"});
    cimClass->AddToNamespace({});
    return cimClass;
  }

  /// An association whose references, one for each end, are its keys; added.
  TClass DefineAssociation(const std::string& name,
                           const std::vector<std::pair<std::string, TClass>>& ends,
                           const TClass& superClass = {}) {
    auto cimClass = NewClass(name, superClass);
    if (!cimClass->IsAssociation({})) Qualify(*cimClass, "Association");
    for (const auto& [role, target] : ends) {
      DeclareProperty(cimClass, role, TCIMValue::NullReference(target), {"Key"});
    }
    cimClass->AddToNamespace({});
    return cimClass;
  }

  using TValues = std::vector<std::pair<std::string, TCIMValue>>;

  /// An instance with the given values, not added.
  static TInstance NewInstance(const TClass& cimClass, const TValues& values = {}) {
    auto instance = cimClass->AllocateInstance({});
    for (const auto& [name, value] : values) instance->SetPropertyValue(name, value, {});
    return instance;
  }

  static TInstance PutInstance(const TClass& cimClass, const TValues& values) {
    auto instance = NewInstance(cimClass, values);
    instance->AddToNamespace({});
    return instance;
  }

  /// An added instance of a class with the key "Id".
  static TInstance PutInstance(const TClass& cimClass, const char* id) {
    return PutInstance(cimClass, TValues{{"Id", TCIMValue(id)}});
  }

  static TCIMValue RefTo(const TInstance& instance) {
    return TCIMValue(instance->GetReference({}));
  }

  static std::string PathOf(const ICIMInstance& instance) {
    return instance.GetReference({}).GetPath();
  }

  /// What an enumeration names, in its order.
  template <class TEnumeration>
  static TNames NamesOf(TEnumeration enumerate) {
    TNames names;
    enumerate(TNamer{[&](const std::string& name) {
      names.push_back(name);
      return true;
    }});
    return names;
  }

  /// The paths of the class's own instances.
  static TNames PathsOf(const TClass& cimClass) {
    return NamesOf([&](const TNamer& note) { cimClass->EnumerateInstances(note, false, {}); });
  }

  TLogRecorder log;
  boost::shared_ptr<ICIMNamespace> space;
};

/// The same in a namespace that allows redefinition.
class TRedefinitionTest : public TRepositoryTest {
 protected:
  TRedefinitionTest() : TRepositoryTest(true) {}
};

}  // namespace NZELVYR20

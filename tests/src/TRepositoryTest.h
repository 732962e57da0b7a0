#pragma once

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>
#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "ICIMQualifier.h"
#include "ICoreLogger.h"
#include "SmallSchema.h"
#include "TCIMReference.h"
#include "TInmemNamespaceProvider.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {

using TNames = std::vector<std::string>;
using TType = TCIMValue::TCIMType;

/// A callback for every enumeration: notes names, and the paths of instances.
struct TNamer {
  std::function<bool(const std::string& name)> note;

  bool operator()(const TInstance& instance) const {
    return note(instance->GetReference({}).GetPath());
  }
  template <class TElement>
  bool operator()(const boost::shared_ptr<TElement>& element) const {
    return note(element->GetName({}));
  }
};

/// A namespace of its own for each test, what a schema is made with, and a record of what the
/// repository logs.
class TRepositoryTest : public ::testing::Test {
 protected:
  using TValues = std::vector<std::pair<std::string, TCIMValue>>;

  TRepositoryTest() { TRootObject::SetCoreLogger(logger); }
  ~TRepositoryTest() override { TRootObject::SetCoreLogger({}); }

  static TSpace NewNamespace(bool allowRedefinition) {
    return TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, allowRedefinition);
  }

  /// What an operation does, as a host sees it: the status with which it fails, 0 when it returns,
  /// and what was logged meanwhile.
  template <class TOperation>
  std::string Try(TOperation operation) {
    logger->text.clear();
    int status = 0;
    try {
      operation();
    } catch (const TVYRException& failure) {
      status = failure.GetStatusCode();
    }
    return Quiet(status) + logger->text;
  }
  static std::string Quiet(int status = 0) { return "status " + std::to_string(status); }
  static std::string Logged(int status, int level, const std::string& text) {
    return Quiet(status) + LogLine(level, text);
  }
  static std::string LogLine(int level, const std::string& text) {
    return "\n[" + std::to_string(level) + "] " + text;
  }
  static std::string InvalidName(const std::string& name) {
    return Logged(25, 0, "Inmem: CIM name '" + name + "' is invalid");
  }

  void Qualify(ICIMNamedElement& element, const std::string& name, const TCIMValue& value = true,
               EFlavor flavor = kUsualFlavor) {
    NewQualifier(space, element, name, value, flavor)->AddToClassOrProperty({});
  }
  TClass NewClass(const std::string& name, const TClass& superClass = {}) {
    return space->AllocateClass(name, superClass, {});
  }
  TPropertyDecl DeclareProperty(const TClass& cimClass, const std::string& name,
                                const TCIMValue& value,
                                std::initializer_list<const char*> flags = {}) {
    return Declare(space, cimClass, name, value, flags);
  }
  /// A class with the string key "Id", added.
  TClass DefineClass(const std::string& name, const TClass& superClass = {}) {
    return AddClass(space, name, TCIMValue::Null(TType::kString), superClass);
  }
  /// An association with that key, too, and these references; added.
  TClass DefineAssociation(const std::string& name,
                           const std::vector<std::pair<std::string, TClass>>& ends) {
    auto cimClass = MakeClass(space, name, "1");
    Qualify(*cimClass, "Association");
    for (const auto& [role, target] : ends) {
      DeclareProperty(cimClass, role, TCIMValue::NullReference(target));
    }
    cimClass->AddToNamespace({});
    return cimClass;
  }

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

  static TCIMValue RefTo(const TInstance& instance) {
    return TCIMValue(instance->GetReference({}));
  }

  /// What an enumeration names, in its order.
  template <class TEnumeration>
  static TNames NamesOf(TEnumeration enumerate) {
    TNames names;
    enumerate(TNamer{[&](const std::string& name) { return names.push_back(name), true; }});
    return names;
  }

  struct TLogger : ICoreLogger {
    void Log(int level, const std::string& message) override { text += LogLine(level, message); }
    std::string text;
  };
  const boost::shared_ptr<TLogger> logger = boost::make_shared<TLogger>();
  TSpace space = NewNamespace(false);
};

/// The same in a namespace that allows redefinition.
struct TRedefinitionTest : TRepositoryTest {
  TRedefinitionTest() { space = NewNamespace(true); }
};

}  // namespace NZELVYR20

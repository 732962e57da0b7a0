#pragma once

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>
#include <functional>
#include <initializer_list>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMProperty.h"
#include "ICIMQualifier.h"
#include "ICoreLogger.h"
#include "SmallSchema.h"
#include "TInmemNamespaceProvider.h"
#include "TRootObject.h"
#include "TVYRException.h"

namespace NZELVYR20 {

using TNames = std::vector<std::string>;
using EFlavor = ICIMQualifierDecl::EFlavor;
using TType = TCIMValue::TCIMType;

/// A callback for every enumeration: notes names, and the paths of instances.
struct TNamer {
  std::function<bool(const std::string& name)> note;

  bool operator()(const std::string* name) const { return note(*name); }
  bool operator()(const TInstance& instance) const {
    return note(instance->BuildPath({}).GetPath());
  }
  template <class TElement>
  bool operator()(const boost::shared_ptr<TElement>& element) const {
    return note(element->GetName({}));
  }
};

/// What a host may throw: a failure of a type of its own.
struct TForeignFailure : TVYRException {
  using TVYRException::TVYRException;
};

/// Expects that a plain failure comes out of the operation, of this status, whatever went in.
template <class TOperation>
void ExpectPlainFailure(int status, TOperation operation) {
  try {
    operation();
    ADD_FAILURE() << "no failure";
  } catch (const TVYRException& failure) {
    EXPECT_EQ(failure.GetStatusCode(), status);
    EXPECT_TRUE(typeid(failure) == typeid(TVYRException));
  }
}

/// A namespace of its own for each test, the verbs with which collectors fill one, and a record of
/// what the repository logs.
class TRepositoryTest : public ::testing::Test {
 protected:
  using TValues = std::vector<std::pair<std::string, TCIMValue>>;

  /// Flavor with which qualifiers are attached unless a test says otherwise.
  static constexpr EFlavor kDefaultFlavor =
      ICIMQualifierDecl::kOverridable | ICIMQualifierDecl::kToSubclass;

  explicit TRepositoryTest(bool allowRedefinition = false)
      : space(NewNamespace(allowRedefinition)) {
    TRootObject::SetCoreLogger(logger);
  }
  ~TRepositoryTest() override { TRootObject::SetCoreLogger({}); }

  static TSpace NewNamespace(bool allowRedefinition) {
    return TInmemNamespaceProvider::GetInstance()->AllocateNamespace({}, allowRedefinition);
  }

  /// The status with which the operation fails, 0 when it returns.
  template <class TOperation>
  static int StatusOf(TOperation operation) {
    try {
      return operation(), 0;
    } catch (const TVYRException& failure) {
      return failure.GetStatusCode();
    }
  }

  /// What an operation does, as a host sees it: the status, and what was logged meanwhile.
  template <class TOperation>
  std::string Try(TOperation operation) {
    logger->text.clear();
    return Quiet(StatusOf(operation)) + logger->text;
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

  /// A qualifier declaration, not added.
  boost::shared_ptr<ICIMQualifierDecl> NewQualifierDecl(const std::string& name,
                                                        const TCIMValue& value = true,
                                                        EFlavor flavor = kDefaultFlavor) {
    return space->AllocateQualifierDecl(name, value, ICIMQualifierDecl::kAny, flavor, {});
  }

  /// A qualifier of the element, not attached.
  boost::shared_ptr<ICIMQualifier> NewQualifier(ICIMNamedElement& element, const std::string& name,
                                                const TCIMValue& value,
                                                EFlavor flavor = kDefaultFlavor) {
    return element.AllocateQualifier(NewQualifierDecl(name, value, flavor), value, flavor, {});
  }

  void Qualify(ICIMNamedElement& element, const std::string& name, const TCIMValue& value = true,
               EFlavor flavor = kDefaultFlavor) {
    NewQualifier(element, name, value, flavor)->AddToClassOrProperty({});
  }

  TClass NewClass(const std::string& name, const TClass& superClass = {}) {
    return space->AllocateClass(name, superClass, {});
  }

  TPropertyDecl DeclareProperty(const TClass& cimClass, const std::string& name,
                                const TCIMValue& defaultValue,
                                std::initializer_list<const char*> flags = {}) {
    return Declare(space, cimClass, name, defaultValue, flags);
  }

  /// A class with the string key "Id", added.
  TClass DefineClass(const std::string& name, const TClass& superClass = {}) {
    return AddClass(space, name, TCIMValue::Null(TType::kString), superClass);
  }

  /// An association whose references, one for each end, are its keys; added.
  TClass DefineAssociation(const std::string& name,
                           const std::vector<std::pair<std::string, TClass>>& ends) {
    auto cimClass = NewClass(name);
    Qualify(*cimClass, "Association");
    for (const auto& [role, target] : ends) {
      DeclareProperty(cimClass, role, TCIMValue::NullReference(target), {"Key"});
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
  static TInstance PutInstance(const TClass& cimClass, const char* id) {
    return AddInstance(cimClass, id);
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
    enumerate(TNamer{[&](const std::string& name) { return names.push_back(name), true; }});
    return names;
  }

  struct TLogger : ICoreLogger {
    void Log(int level, const std::string& message) override { text += LogLine(level, message); }
    std::string text;
  };
  boost::shared_ptr<TLogger> logger = boost::make_shared<TLogger>();
  TSpace space;
};

/// The same in a namespace that allows redefinition.
class TRedefinitionTest : public TRepositoryTest {
 protected:
  TRedefinitionTest() : TRepositoryTest(true) {}
};

}  // namespace NZELVYR20

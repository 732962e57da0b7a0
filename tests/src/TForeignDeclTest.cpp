#include <boost/make_shared.hpp>
#include <functional>
#include <utility>

#include "ICIMMethodDecl.h"
#include "TInmemDeclaration.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// A declaration of another implementation, and what it does when asked for "OVERRIDE".
template <class TInterface, class TSelf>
struct TForeignDecl : TInmemDeclaration<TInterface, TSelf> {
  using TAsk = std::function<boost::shared_ptr<ICIMQualifier>()>;

  TForeignDecl(const std::string& name, TType valueType, TAsk answer)
      : TInmemDeclaration<TInterface, TSelf>(name), type(valueType), ask(std::move(answer)) {}

  using TInmemDeclaration<TInterface, TSelf>::operator=;
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string& name,
                                                TCIMContext) const override {
    EXPECT_EQ(name, "OVERRIDE");
    return ask();
  }
  boost::shared_ptr<ICIMQualifier> GetQualifier(const std::string&, bool&,
                                                TCIMContext) const override {
    throw TVYRException(1);
  }
  void EnumerateQualifiers(const TCIMQualifierCallback&, TCIMContext) const override {}
  void Validate(TCIMContext) override {}
  void AddToClass(TCIMContext) override {}
  boost::shared_ptr<ICIMClass> GetClass(TCIMContext) const override { return {}; }

  TType type;
  TAsk ask;
  TCIMValue value;
};

struct TForeignProperty : TForeignDecl<ICIMPropertyDecl, TForeignProperty> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignProperty& operator=(const TForeignProperty&) { return *this; }
  void RemoveFromClass(TCIMContext) override {}
  TType GetType(TCIMContext) const override { return type; }
  bool IsArray(TCIMContext) const override { return false; }
  const TCIMValue& GetDefaultValue(TCIMContext) const override { return value; }
  void SetDefaultValue(const TCIMValue&, TCIMContext) override {}
};

struct TForeignMethod : TForeignDecl<ICIMMethodDecl, TForeignMethod> {
  using TForeignDecl::TForeignDecl;
  using TForeignDecl::operator=;
  TForeignMethod& operator=(const TForeignMethod&) { return *this; }
  TType GetReturnType(TCIMContext) const override { return type; }
  boost::shared_ptr<ICIMParameterDecl> AllocateParameterDecl(const std::string&, TType,
                                                             TCIMContext) override {
    return {};
  }
  boost::shared_ptr<ICIMParameterDecl> GetParameterDecl(const std::string&,
                                                        TCIMContext) const override {
    return {};
  }
  void EnumerateParameterDecls(TCIMParameterDeclCallback&, TCIMContext) override {}
};

/// A class "Sub" that inherits "Speed" and "Reset" of type string, and declares "Own" and "Stop".
class TForeignDeclTest : public TRepositoryTest {
 protected:
  using TAsk = TForeignProperty::TAsk;

  TForeignDeclTest() {
    DeclareProperty(base, "Speed", "");
    base->AllocateMethodDecl("Reset", TType::kString, {})->AddToClass({});
    sub = NewClass("Sub", base);
    DeclareProperty(sub, "Own", "");
    sub->AllocateMethodDecl("Stop", TType::kString, {})->AddToClass({});
  }

  /// What the message with this beginning leads to, once or with the second message of methods.
  static TOutcome Refused(int status, const std::string& text, const std::string& reason) {
    const std::string method = text.substr(0, text.find(' '));
    TOutcome outcome = TOutcome::Logged(
        status, 3, "Inmem: Attempt to override method " + method + " in class Sub: " + reason);
    if (reason.empty()) outcome.log.clear();
    outcome.log.push_back({3, "Inmem: Attempt define method " + method + " in class Subfailed. " +
                                  "Reason = " + TVYRException(status).what()});
    return outcome;
  }

  TClass base = NewClass("Base");
  TClass sub;
  const TAsk missing = []() -> boost::shared_ptr<ICIMQualifier> { throw TVYRException(15); };
  const TAsk none = [] { return boost::shared_ptr<ICIMQualifier>(); };
  const TAsk present = [this] { return NewQualifier(*base, "Override", true); };
  const TAsk failing = []() -> boost::shared_ptr<ICIMQualifier> { throw TForeignFailure(28); };
};

TEST_F(TForeignDeclTest, PropertiesMeetTheRules) {
  const std::string attempt = "Inmem: Attempt to override property ";
  const struct {
    const char* name;
    TType type;
    TAsk ask;
    TOutcome outcome = TOutcome::Quiet();
  } rows[] = {
      {"9x", TType::kReference, failing,
       TOutcome::Logged(
           22, 0, "Inmem: Attempt to add reference property 9x to non-association class Sub")},
      {"9x", TType::kString, failing, InvalidName("9x")},
      {"Speed", TType::kUInt8, present,
       TOutcome::Logged(0, 3, attempt + "Speed in class Sub: different types")},
      {"OWN", TType::kString, present},
      {"speed", TType::kUInt8, missing},
      {"speed", TType::kUInt8, none},
      {"New", TType::kString, failing},
  };
  for (const auto& row : rows) {
    const auto added = boost::make_shared<TForeignProperty>(row.name, row.type, row.ask);
    EXPECT_EQ(Try([&] { sub->AddPropertyDecl(added); }), row.outcome) << row.name;
  }
  EXPECT_TRUE(sub->GetPropertyDecl("Own", {}) && sub->GetPropertyDecl("Speed", {}));
  const auto fatal = [&](const char* name, const TAsk& ask) {
    sub->AddPropertyDecl(boost::make_shared<TForeignProperty>(name, TType::kString, ask));
  };
  EXPECT_DEATH(fatal("Speed", present), "");
  EXPECT_DEATH(fatal("New", missing), "");
  EXPECT_THROW(fatal("New", []() -> TForeignProperty::TAsk::result_type { throw 7; }), int);
}

TEST_F(TForeignDeclTest, MethodsMeetTheRules) {
  const struct {
    const char* name;
    TType type;
    TAsk ask;
    TOutcome outcome;
  } rows[] = {
      {"9x", TType::kString, failing, InvalidName("9x")},
      {"Reset", TType::kUInt8, present, Refused(14, "Reset", "different types")},
      {"Stop", TType::kString, present, Refused(16, "Stop", "original was defined in this class")},
      {"New", TType::kString, failing, Refused(28, "New", "")},
      {"Reset", TType::kString, missing,
       TOutcome::Logged(16, 3, "Inmem: Attempt to add method Reset to class Sub: already exists")},
  };
  for (const auto& row : rows) {
    const auto added = boost::make_shared<TForeignMethod>(row.name, row.type, row.ask);
    EXPECT_EQ(Try([&] { sub->AddMethodDecl(added); }), row.outcome) << row.name;
  }
  const auto failed = boost::make_shared<TForeignMethod>("New", TType::kString, failing);
  ExpectPlainFailure(28, [&] { sub->AddMethodDecl(failed); });
  EXPECT_DEATH(
      sub->AddMethodDecl(boost::make_shared<TForeignMethod>("New", TType::kString, missing)), "");
}

struct TDeclaringLogger : ICoreLogger {
  void Log(int, const std::string&) override {
    std::exchange(declare, [] {})();
  }
  std::function<void()> declare;
};

TEST_F(TForeignDeclTest, WhatTheLoggerDeclaresMeanwhileStays) {
  const auto logger = boost::make_shared<TDeclaringLogger>();
  TRootObject::SetCoreLogger(logger);
  TPropertyDecl property;
  logger->declare = [&] { property = DeclareProperty(sub, "New", ""); };
  NewPropertyDecl(sub, "New", "", {"Override"})->AddToClass({});
  EXPECT_EQ(sub->GetPropertyDecl("New", {}), property);
  const auto method = sub->AllocateMethodDecl("New", TType::kString, {});
  logger->declare = [&] { method->AddToClass({}); };
  const auto late = sub->AllocateMethodDecl("New", TType::kString, {});
  Qualify(*late, "Override");
  late->AddToClass({});
  EXPECT_EQ(sub->GetMethodDecl("New", {}), method);
}

}  // namespace
}  // namespace NZELVYR20

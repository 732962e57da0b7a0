#include "TForeignDecl.h"

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// A class "Sub" that inherits "Speed" and "Reset" of type string, and declares "Own" and "Stop".
class TForeignDeclTest : public TRepositoryTest {
 protected:
  struct TRow {
    const char* name;
    TCIMValue value;
    TAsk ask;
    std::string outcome = Quiet();
  };

  TForeignDeclTest() {
    DeclareProperty(base, "Speed", "");
    base->AllocateMethodDecl("Reset", TType::kString, {})->AddToClass({});
    sub = NewClass("Sub", base);
    DeclareProperty(sub, "Own", "");
    sub->AllocateMethodDecl("Stop", TType::kString, {})->AddToClass({});
  }

  void Add(const boost::shared_ptr<TForeignProperty>& added) { sub->AddPropertyDecl(added); }
  void Add(const boost::shared_ptr<TForeignMethod>& added) { sub->AddMethodDecl(added); }

  template <class TForeign>
  void Check(const std::vector<TRow>& rows) {
    for (const auto& [name, value, ask, outcome] : rows) {
      const auto added = boost::make_shared<TForeign>(name, value, ask);
      EXPECT_EQ(Try([&] { Add(added); }), outcome) << name;
    }
  }

  /// What leads to the message with this beginning, and to the second message of methods.
  static std::string Refused(int status, const std::string& method, const std::string& reason) {
    const std::string text = "Inmem: Attempt to override method " + method + " in class Sub: ";
    return Quiet(status) + (reason.empty() ? "" : LogLine(3, text + reason)) +
           LogLine(3, "Inmem: Attempt define method " + method +
                          " in class Subfailed. Reason = " + TVYRException(status).what());
  }

  static TAsk Throw(int status) {
    return [status](const std::string& qualifier) -> boost::shared_ptr<ICIMQualifier> {
      EXPECT_EQ(qualifier, "OVERRIDE");
      throw TForeignFailure(status);
    };
  }

  TClass base = NewClass("Base"), sub;
  const TAsk missing = Throw(15), failing = Throw(28);
  const TAsk none = [](auto&) { return boost::shared_ptr<ICIMQualifier>(); };
  const TAsk present = [this](auto&) { return NewQualifier(*base, "Override", true); };
};

TEST_F(TForeignDeclTest, PropertiesMeetTheRules) {
  const TCIMValue number = 1U;
  Check<TForeignProperty>({
      {"9x", TCIMValue::Null(TType::kReference), failing,
       Logged(22, 0, "Inmem: Attempt to add reference property 9x to non-association class Sub")},
      {"9x", "", failing, InvalidName("9x")},
      {"Speed", number, present,
       Logged(0, 3, "Inmem: Attempt to override property Speed in class Sub: different types")},
      {"OWN", "", present},
      {"speed", number, missing},
      {"speed", number, none},
      {"New", "", failing},
  });
  EXPECT_TRUE(sub->GetPropertyDecl("Own", {}) && sub->GetPropertyDecl("Speed", {}));
  EXPECT_DEATH(Add(boost::make_shared<TForeignProperty>("Speed", "", present)), "");
  EXPECT_DEATH(Add(boost::make_shared<TForeignProperty>("New", "", missing)), "");
  const TAsk odd = [](auto&) -> boost::shared_ptr<ICIMQualifier> { throw 7; };
  EXPECT_THROW(Add(boost::make_shared<TForeignProperty>("New", "", odd)), int);
}

TEST_F(TForeignDeclTest, MethodsMeetTheRules) {
  Check<TForeignMethod>({
      {"9x", "", failing, InvalidName("9x")},
      {"Reset", 1U, present, Refused(14, "Reset", "different types")},
      {"Stop", "", present, Refused(16, "Stop", "original was defined in this class")},
      {"New", "", failing, Refused(28, "New", "")},
      {"Reset", "", missing,
       Logged(16, 3, "Inmem: Attempt to add method Reset to class Sub: already exists")},
  });
  ExpectPlainFailure(28, [&] { Add(boost::make_shared<TForeignMethod>("New", "", failing)); });
  EXPECT_DEATH(Add(boost::make_shared<TForeignMethod>("New", "", missing)), "");
}

TEST_F(TForeignDeclTest, WhatTheLoggerDeclaresMeanwhileStays) {
  struct TDeclaringLogger : ICoreLogger {
    void Log(int, const std::string&) override {
      std::exchange(declare, [] {})();
    }
    std::function<void()> declare;
  };
  const auto acting = boost::make_shared<TDeclaringLogger>();
  TRootObject::SetCoreLogger(acting);
  TPropertyDecl property;
  acting->declare = [&] { property = DeclareProperty(sub, "New", ""); };
  DeclareProperty(sub, "New", "", {"Override"});
  EXPECT_EQ(sub->GetPropertyDecl("New", {}), property);
  const auto method = sub->AllocateMethodDecl("New", TType::kString, {});
  const auto late = sub->AllocateMethodDecl("New", TType::kString, {});
  Qualify(*late, "Override");
  acting->declare = [&] { method->AddToClass({}); };
  late->AddToClass({});
  EXPECT_EQ(sub->GetMethodDecl("New", {}), method);
}

}  // namespace
}  // namespace NZELVYR20

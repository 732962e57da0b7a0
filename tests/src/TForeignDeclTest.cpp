#include "TForeignDecl.h"

#include <typeinfo>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What a host may throw: a failure of a type of its own.
struct TForeignFailure : TVYRException {
  using TVYRException::TVYRException;
};

/// A class "Sub" that inherits "Speed" and "Reset" of type string, and declares "Own".
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
  }

  void AddProperty(const std::string& name, const TCIMValue& value, const TAsk& ask) {
    sub->AddPropertyDecl(boost::make_shared<TForeignProperty>(name, value, ask));
  }
  void AddMethod(const std::string& name, const TCIMValue& value, const TAsk& ask) {
    sub->AddMethodDecl(boost::make_shared<TForeignMethod>(name, value, ask));
  }

  static TAsk Throw(int status) {
    return [status](const std::string&) -> TQualifier { throw TForeignFailure(status); };
  }

  TClass base = NewClass("Base"), sub;
  const TAsk missing = Throw(15), failing = Throw(28);
  const TAsk none = [](auto&) { return TQualifier(); };
  const TAsk present = [this](auto&) { return NewQualifier(space, *base, "Override", true); };
};

TEST_F(TForeignDeclTest, PropertiesMeetTheRules) {
  const TRow rows[] = {
      {"9x", TCIMValue::Null(TType::kReference), failing,
       Logged(22, 0, "Inmem: Attempt to add reference property 9x to non-association class Sub")},
      {"9x", "", failing, InvalidName("9x")},
      {"Speed", 1U, present,
       Logged(0, 3, "Inmem: Attempt to override property Speed in class Sub: different types")},
      {"OWN", "", present},
      {"speed", 1U, missing},
      {"speed", 1U, none},
      {"New", "", failing},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Try([&] { AddProperty(row.name, row.value, row.ask); }), row.outcome) << row.name;
  }
  // What would go in has to be of this repository.
  EXPECT_DEATH(AddProperty("Speed", "", present), "");
  EXPECT_DEATH(AddProperty("New", "", missing), "");
  const TAsk odd = [](auto&) -> TQualifier { throw 7; };
  EXPECT_THROW(AddProperty("New", "", odd), int);
}

TEST_F(TForeignDeclTest, MethodsMeetTheRules) {
  const std::string attempt = "Inmem: Attempt ";
  const auto failed = [&](const std::string& name, int status) {
    return LogLine(3, attempt + "define method " + name +
                          " in class Subfailed. Reason = " + TVYRException(status).what());
  };
  const TRow rows[] = {
      {"9x", "", failing, InvalidName("9x")},
      {"Reset", 1U, present,
       Logged(14, 3, attempt + "to override method Reset in class Sub: different types") +
           failed("Reset", 14)},
      {"New", "", failing, Quiet(28) + failed("New", 28)},
      {"Reset", "", missing,
       Logged(16, 3, attempt + "to add method Reset to class Sub: already exists")},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Try([&] { AddMethod(row.name, row.value, row.ask); }), row.outcome) << row.name;
  }
  try {
    AddMethod("New", "", failing);
  } catch (const TVYRException& failure) {
    EXPECT_TRUE(typeid(failure) == typeid(TVYRException)) << "a type of this repository";
  }
  EXPECT_DEATH(AddMethod("New", "", missing), "");
}

TEST_F(TForeignDeclTest, AQualifierIsMadeThoughItsDeclarationLetsGoOfTheElement) {
  struct TLettingGo : TModelQualifierDecl {
    using TModelQualifierDecl::operator=;
    EFlavor GetFlavor(TAny) const override {
      letGo();
      return flavor;
    }
    std::function<void()> letGo;
  };
  auto element = sub->AllocatePropertyDecl("New", "", {});
  const auto declaration = boost::make_shared<TLettingGo>();
  declaration->letGo = [&] { element.reset(); };
  EXPECT_FALSE(element->AllocateQualifier(declaration, 1U, {})->GetClassOrProperty({}));
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

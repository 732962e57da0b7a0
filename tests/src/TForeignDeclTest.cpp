#include "TForeignDecl.h"

#include <typeinfo>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What a host may throw: a failure of a type of its own.
struct TForeignFailure : TVYRException {
  using TVYRException::TVYRException;
};

struct TActingLogger : ICoreLogger {
  void Log(int, const std::string&) override {
    std::exchange(act, [] {})();
  }
  std::function<void()> act = [] {};
};

/// A declaration of another implementation that acts when it is asked for its name or flavor.
template <class TModelDecl>
struct TActing : TModelDecl {
  using TModelDecl::operator=;
  const std::string& GetName(TAny) const override { return act(), this->name; }
  std::function<void()> act = [] {};
};
struct TActingQualifierDecl : TActing<TModelQualifierDecl> {
  TActingQualifierDecl() { name = "Alpha", flavor = kUsualFlavor; }
  using TModelQualifierDecl::operator=;
  EFlavor GetFlavor(TAny) const override { return act(), flavor; }
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
  const auto acting = boost::make_shared<TActingLogger>();
  TRootObject::SetCoreLogger(acting);
  TPropertyDecl property;
  acting->act = [&] { property = DeclareProperty(sub, "New", ""); };
  DeclareProperty(sub, "New", "", {"Override"});
  EXPECT_EQ(sub->GetPropertyDecl("New", {}), property);
  const auto method = sub->AllocateMethodDecl("New", TType::kString, {});
  const auto late = sub->AllocateMethodDecl("New", TType::kString, {});
  Qualify(*late, "Override");
  acting->act = [&] { method->AddToClass({}); };
  late->AddToClass({});
  EXPECT_EQ(sub->GetMethodDecl("New", {}), method);
}

TEST_F(TForeignDeclTest, AQualifierPassesDownUnderTheNameOfTheTime) {
  const auto declaration = boost::make_shared<TActingQualifierDecl>();
  const auto above = DefineClass("Above");
  const auto below = DefineClass("Below", above);
  above->AllocateQualifier(declaration, true, {})->AddToClassOrProperty({});
  NewClass("Below");  // refreshes it
  declaration->name = "BETA";
  EXPECT_EQ(NewClass("BELOW"), below);
  EXPECT_TRUE(below->GetQualifier("alpha", {}) && below->GetQualifier("beta", {}));
  const auto late = NewClass("Late", above);
  EXPECT_TRUE(!late->GetQualifier("alpha", {}) && late->GetQualifier("beta", {}));
  declaration->name = "9x";
  EXPECT_EQ(Try([&] { NewClass("Latest", above); }), InvalidName("9x"));
}

TEST_F(TForeignDeclTest, WhoIsAskedMayDropTheElementAndSetTheValue) {
  const auto declaration = boost::make_shared<TActingQualifierDecl>();
  const auto property = boost::make_shared<TActing<TModelPropertyDecl>>();
  const auto method = boost::make_shared<TActing<TModelMethodDecl>>();
  const auto given = NewQualifier(space, *base, "Given", 1U);
  auto made = base->AllocateQualifier(declaration, true, {});
  const std::function<void(ICIMClass&)> operations[] = {
      [&](auto& of) { made = of.AllocateQualifier(declaration, given->GetValue({}), {}); },
      [&](auto& of) { of.AddQualifier(made, {}); },
      [&](auto& of) { of.RemovePropertyDecl(property); },
      [&](auto& of) { of.RemoveMethodDecl(method); },
  };
  for (const auto& operation : operations) {
    auto dropped = NewClass("Dropped");
    const boost::weak_ptr<ICIMClass> watched = dropped;
    const bool isDoneWithIt = &operation == operations;
    declaration->act = property->act = method->act = [&] {
      dropped.reset();
      EXPECT_EQ(watched.expired(), isDoneWithIt);
      given->SetValue(2U, {});
    };
    Try([&] { operation(*dropped); });
    EXPECT_TRUE(watched.expired());
  }
  EXPECT_EQ(made->GetValue({}), TCIMValue(1U));
}

TEST_F(TForeignDeclTest, TheLoggerMayDropWhatLogs) {
  const auto acting = boost::make_shared<TActingLogger>();
  TRootObject::SetCoreLogger(acting);
  auto dropped = NewClass("Dropped");
  DeclareProperty(dropped, "Speed", 1U);
  acting->act = [&] { dropped.reset(); };
  EXPECT_EQ(Try([&] { dropped->AddToNamespace({}); }), Quiet(7));
  space = NewNamespace(false);
  const boost::weak_ptr<ICIMNamespace> watched = space;
  acting->act = [&] {
    space.reset();
    EXPECT_FALSE(watched.expired());
  };
  EXPECT_EQ(NewClass("9x")->GetNamespace({}), nullptr);
}

}  // namespace
}  // namespace NZELVYR20

#include "TInmemDeclaration.h"

#include "ICIMParameterDecl.h"
#include "TInmemClass.h"
#include "TInmemParameterDecl.h"
#include "TInmemQualifier.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

constexpr EFlavor kOverridable = ICIMQualifierDecl::kOverridable;
constexpr EFlavor kToSubclass = ICIMQualifierDecl::kToSubclass;

/// What the random operations do not reach, parameters above all.
class TInmemDeclarationTest : public TRepositoryTest {
 protected:
  TClass port = DefineClass("Port");
  boost::shared_ptr<TInmemClass> owner = boost::dynamic_pointer_cast<TInmemClass>(port);
  boost::shared_ptr<TInmemMethodDecl> method =
      boost::make_shared<TInmemMethodDecl>(owner, "Reset", TType::kUInt32);
};

TEST_F(TInmemDeclarationTest, AssignmentCopiesNothing) {
  const auto expect = [](const auto& element, const auto& other) {
    EXPECT_EQ(&(*element = *other), element.get());
    EXPECT_EQ(element->GetName({}), "A");
  };
  expect(port->AllocatePropertyDecl("A", 1U, {}), port->AllocatePropertyDecl("B", "", {}));
  expect(port->AllocateMethodDecl("A", TType::kUInt8, {}),
         port->AllocateMethodDecl("B", TType::kUInt8, {}));
  expect(NewQualifier(*port, "A", true), NewQualifier(*port, "B", 1U));
  expect(NewQualifierDecl("A"), NewQualifierDecl("B"));
  const TInmemPropertyDecl copy(boost::shared_ptr<const TInmemClass>(owner),
                                port->GetPropertyDecl("Id", {}));
  EXPECT_EQ(copy.GetName({}), "");
  EXPECT_EQ(copy.GetDefaultValue({}), TCIMValue());
}

TEST_F(TInmemDeclarationTest, AMethodFindsItsParametersByName) {
  const auto count = boost::make_shared<TInmemParameterDecl>(method, "COUNT", TType::kUInt8Array);
  const auto again = boost::make_shared<TInmemParameterDecl>(method, "Count", TType::kString);
  count->AddToMethod({});
  EXPECT_EQ(Try([&] { again->AddToMethod({}); }),
            Logged(16, 3, "Inmem: Attempt to add property Count to method Reset: already exists"));
  EXPECT_EQ(method->GetParameterDecl("count", {}), count);
  EXPECT_FALSE(count->IsArray({})) << "it does not look at its type";
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { method->RemoveParameterDecl(again); }), Quiet(status));
  }
  EXPECT_EQ(Try([&] { method->GetParameterDecl("Count", {}); }), Quiet(15));
}

TEST_F(TInmemDeclarationTest, AParameterTreatsItsQualifiersInItsOwnWay) {
  const auto mode = method->AllocateParameterDecl("Mode", TType::kString, {});
  const struct {
    const char* value;
    EFlavor flavor;
    int status;
  } rows[] = {{"Volts", kToSubclass, 0},
              {"Volts", kToSubclass, 0},
              {"Volts", kOverridable, 28},
              {"Amps", kToSubclass, 28}};
  for (const auto& row : rows) {
    EXPECT_EQ(Try([&] { Qualify(*mode, "Units", row.value, row.flavor); }), Quiet(row.status));
  }
  EXPECT_TRUE(mode->GetQualifier("UNITS", {}));
  EXPECT_EQ(Try([&] { EXPECT_FALSE(mode->GetQualifier("Unit", {})); }), Quiet());
  bool isFound = true;
  EXPECT_EQ(Try([&] { mode->GetQualifier("Units", isFound, {}); }), Quiet(1));
}

TEST_F(TInmemDeclarationTest, AQualifierHasItsValuesTypeAndItsDeclarationAnother) {
  const auto units = NewQualifierDecl("Units", TCIMValue("V"), kToSubclass);
  const auto attached = boost::make_shared<TInmemQualifier>(port, units, TCIMValue(7));
  EXPECT_EQ(attached->GetType({}), TType::kSInt32);
  units->SetDefaultValue(TCIMValue::Null(TType::kUInt8Array), {});
  EXPECT_EQ(units->GetType({}), TType::kUInt8Array);
  EXPECT_TRUE(units->IsArray({}));
  const boost::shared_ptr<const ICIMQualifier> source(attached);
  for (const bool isPropagated : {true, false}) {
    attached->SetPropagated(isPropagated);
    EXPECT_EQ(TInmemQualifier(port, source).GetPropagated({}), isPropagated);
  }
}

}  // namespace
}  // namespace NZELVYR20

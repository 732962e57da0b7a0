#include "ICIMMethodDecl.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// Where a declaration of the name stands already.
enum EPresent { kNowhere, kInherited, kHere };
/// What the added declaration is like; the one that stands already is plain.
enum EForm { kPlain, kOtherType, kOverride, kOverrideOtherType };

const std::string kExists = "already exists";
const std::string kNoBase = " doesn't exist in base class";
const std::string kTypes = "different types";
const std::string kOwn = "original was defined in this class";

TLogLine Attempt(const std::string& kind, const std::string& name, const std::string& reason) {
  if (reason == kExists)
    return {3, "Inmem: Attempt to add " + kind + " " + name + " to class CIM_Sub: " + reason};
  return {3, "Inmem: Attempt to override " + kind + " " + name +
                 " in class CIM_Sub: " + (reason == kNoBase ? kind : "") + reason};
}

class TInmemClassDeclarationsTest : public TRepositoryTest {
 protected:
  template <class TDeclaration>
  TDeclaration Mark(TDeclaration declaration, EForm form) {
    if (form >= kOverride) Qualify(*declaration, "OVERRIDE", TCIMValue("any value"));
    return declaration;
  }

  auto NewProperty(const TClass& cimClass, const std::string& name, EForm form) {
    const TCIMValue value = form == kPlain || form == kOverride ? TCIMValue(1) : TCIMValue("1");
    return Mark(cimClass->AllocatePropertyDecl(name, value, {}), form);
  }

  auto NewMethod(const TClass& cimClass, const std::string& name, EForm form) {
    const auto type = form == kPlain || form == kOverride ? TType::kUInt32 : TType::kString;
    return Mark(cimClass->AllocateMethodDecl(name, type, {}), form);
  }

  template <class TDeclaration>
  TOutcome TryAdd(const TDeclaration& declaration) {
    return Try([&] { declaration->AddToClass({}); });
  }

  /// Makes CIM_Sub and its superclass anew, with a property and a method of the name.
  void Prepare(EPresent where, const std::string& name) {
    const TClass base = NewClass("CIM_Base");
    if (where == kInherited) Declare(base, name);
    sub = NewClass("CIM_Sub", base);
    if (where == kHere) Declare(sub, name);
  }

  void Declare(const TClass& cimClass, const std::string& name) {
    (property = NewProperty(cimClass, name, kPlain))->AddToClass({});
    (method = NewMethod(cimClass, name, kPlain))->AddToClass({});
  }

  TClass sub;
  TPropertyDecl property;
  boost::shared_ptr<ICIMMethodDecl> method;
};

/// Side by side, since the two follow one plan and differ on purpose.
TEST_F(TInmemClassDeclarationsTest, DecidesWhichDeclarationStands) {
  const struct {
    const char* description;
    EPresent where;
    std::string present;
    std::string added;
    EForm form;
    bool propertyGoesIn;
    std::string propertyReason;  ///< what is logged; empty for nothing
    int methodStatus;            ///< it goes in where this is 0
    std::string methodReason;
  } rows[] = {
      {"taken here", kHere, "Speed", "SPEED", kPlain, false, "", 16, kExists},
      {"taken above", kInherited, "Speed", "Speed", kOtherType, false, "", 16, kExists},
      {"port type", kHere, "PortType", "PortType", kPlain, true, "", 16, kExists},
      {"within a name", kInherited, "AnyPortTypeX", "AnyPortTypeX", kPlain, true, "", 16, kExists},
      {"duplex", kHere, "myspeedDuplex", "myspeedDuplex", kOtherType, true, "", 16, kExists},
      {"case of the added", kHere, "PortType", "Porttype", kPlain, false, "", 16, kExists},
      {"not of the present", kHere, "porttype", "PortType", kPlain, true, "", 16, kExists},
      {"SpeedDuplex", kHere, "speedDuplex", "SpeedDuplex", kPlain, false, "", 16, kExists},
      {"override of nothing", kNowhere, "", "Speed", kOverride, true, kNoBase, 0, kNoBase},
      {"of no port type", kNowhere, "", "MyPORTtype", kOverride, true, "", 0, kNoBase},
      {"of no duplex", kNowhere, "", "speedDuplex", kOverride, true, kNoBase, 0, kNoBase},
      {"override", kInherited, "Speed", "SPEED", kOverride, true, "", 0, ""},
      {"other type", kInherited, "A", "a", kOverrideOtherType, false, kTypes, 14, kTypes},
      {"of its own", kHere, "PortType", "PortType", kOverride, false, "", 16, kOwn},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    Prepare(row.where, row.present);
    const auto addedProperty = NewProperty(sub, row.added, row.form);
    TOutcome expected;
    if (!row.propertyReason.empty())
      expected.log = {Attempt("property", row.added, row.propertyReason)};
    EXPECT_EQ(TryAdd(addedProperty), expected);
    EXPECT_EQ(sub->GetPropertyDecl(row.added, {}), row.propertyGoesIn ? addedProperty : property);

    const auto addedMethod = NewMethod(sub, row.added, row.form);
    expected = TOutcome::Quiet(row.methodStatus);
    if (!row.methodReason.empty()) expected.log = {Attempt("method", row.added, row.methodReason)};
    if (row.form >= kOverride && row.methodStatus != 0) {
      expected.log.push_back(
          {3, "Inmem: Attempt define method " + row.added +
                  " in class CIM_Subfailed. Reason = " + TVYRException(row.methodStatus).what()});
    }
    EXPECT_EQ(TryAdd(addedMethod), expected);
    EXPECT_EQ(sub->GetMethodDecl(row.added, {}), row.methodStatus == 0 ? addedMethod : method);
  }
}

TEST_F(TInmemClassDeclarationsTest, ReferencesNeedAnAssociationAndDeclarationsAName) {
  const TClass port = NewClass("CIM_Port");
  const TCIMValue target = TCIMValue::NullReference(port);
  const TCIMValue many = TCIMValue::Null(TType::kReferenceArray);
  EXPECT_EQ(TryAdd(Mark(port->AllocatePropertyDecl("1st", target, {}), kOverride)),
            TOutcome::Logged(22, 0,
                             "Inmem: Attempt to add reference property 1st to non-association "
                             "class CIM_Port"))
      << "before its name and qualifiers are looked at";
  EXPECT_EQ(TryAdd(port->AllocatePropertyDecl("Many", many, {})), TOutcome::Quiet());
  Qualify(*port, "Association");
  EXPECT_EQ(TryAdd(port->AllocatePropertyDecl("One", target, {})), TOutcome::Quiet());

  EXPECT_EQ(TryAdd(NewProperty(port, "a b", kPlain)), InvalidName("a b"));
  EXPECT_EQ(TryAdd(NewMethod(port, "a b", kPlain)), InvalidName("a b"));
}

TEST_F(TInmemClassDeclarationsTest, RemovesByNameFromOneClassOnly) {
  Prepare(kInherited, "Speed");
  const auto otherProperty = NewProperty(sub, "SPEED", kOtherType);
  const auto otherMethod = NewMethod(sub, "SPEED", kOtherType);
  for (const int status : {0, 15}) {
    EXPECT_EQ(Try([&] { sub->RemovePropertyDecl(otherProperty); }), TOutcome::Quiet(status));
    EXPECT_EQ(Try([&] { sub->RemoveMethodDecl(otherMethod); }), TOutcome::Quiet(status));
  }
  EXPECT_EQ(Try([&] { sub->GetPropertyDecl("Speed", {}); }), TOutcome::Quiet(15));
  EXPECT_EQ(Try([&] { EXPECT_FALSE(sub->GetMethodDecl("Speed", {})); }), TOutcome::Quiet());
}

}  // namespace
}  // namespace NZELVYR20

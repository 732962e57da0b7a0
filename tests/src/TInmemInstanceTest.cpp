#include "TInmemInstance.h"

#include "TCIMDateTime.h"
#include "TOSSpecific.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

class TInmemInstanceTest : public TRepositoryTest {
 protected:
  static std::string TextOf(const TInstance& instance, const char* name) {
    return instance->GetProperty(name, {})->ToString();
  }

  TClass port = DefineClass("Port");
};

TEST_F(TInmemInstanceTest, IsAddedWhenKeysAndReferencesHold) {
  const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
  const auto spare = DefineAssociation("Spare", {{"From", port}});
  DeclareProperty(spare, "Other", TCIMValue::NullReference(port));
  const auto former = DefineAssociation("Former", {{"From", port}});
  Qualify(*former, "Association", TCIMValue(false));
  const auto here = RefTo(PutInstance(port, "a"));
  const auto lost = RefTo(NewInstance(port, {{"Id", "b"}}));
  const auto odd = RefTo(NewInstance(NewClass("no name", port), {{"Id", "a"}}));
  const TOutcome fine;
  const TOutcome isLost{15, {{0, "Inmem: Reference Port.id=\"b\" doesn't point to anything!"}}};
  const struct {
    const char* description;
    TClass cimClass;
    int flags;
    TValues values;
    TOutcome outcome;
  } rows[] = {
      {"all is well", link, 3, {{"From", here}, {"To", here}}, fine},
      {"null key", port, 3, {}, {18, {{0, "Inmem: Instance Port: key property Id is NULL"}}}},
      {"null key, before a lost reference",
       link,
       3,
       {{"From", lost}},
       {18, {{0, "Inmem: Instance Link: key property To is NULL"}}}},
      {"lost reference", link, 3, {{"From", here}, {"To", lost}}, isLost},
      {"null reference that is no key",
       spare,
       3,
       {{"From", here}},
       {15, {{0, "Inmem: Reference Port doesn't point to anything!"}}}},
      {"resolution fails otherwise",
       link,
       3,
       {{"From", odd}, {"To", here}},
       {25, {{0, "Inmem: CIM name 'no name' is invalid"}}}},
      {"lost reference outside an association", former, 3, {{"From", lost}}, fine},
      {"nothing is checked", link, 0, {{"From", lost}}, fine},
      {"keys are checked", link, 1, {{"From", lost}, {"To", lost}}, fine},
      {"references are checked", link, 2, {{"From", lost}}, isLost},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const TInstance instance = boost::make_shared<TInmemInstance>(row.cimClass, row.flags);
    for (const auto& [name, value] : row.values) instance->SetPropertyValue(name, value, {});
    EXPECT_EQ(Try([&] { instance->Validate({}); }), row.outcome);
    TOutcome added{0, row.outcome.log};
    const bool isRefused = row.outcome.status != 0;
    const std::string name = row.cimClass->GetName({});
    if (isRefused) added.log.push_back({0, "Inmem: Instance " + name + ": invalid references"});
    EXPECT_EQ(Try([&] { instance->AddToNamespace({}); }), added);
    EXPECT_EQ(space->GetInstance(instance->GetReference({}), {}) != instance, isRefused);
  }
}

TEST_F(TInmemInstanceTest, StaysUnderThePathWithWhichItWasAdded) {
  const auto first = PutInstance(port, "a");
  const auto second = PutInstance(port, "a");
  const auto oldPath = second->GetReference({});
  EXPECT_EQ(space->GetInstance(oldPath, {}), second);
  second->SetPropertyValue("id", "b", {});
  EXPECT_EQ(space->GetInstance(second->GetReference({}), {}), nullptr);
  second->Delete({});
  EXPECT_EQ(space->GetInstance(oldPath, {}), second);
  first->Delete({});  // what stands there goes, whichever instance it is
  EXPECT_EQ(PathsOf(port), TNames{});
  EXPECT_EQ(Try([&] { first->Delete({}); }), TOutcome{});
  EXPECT_EQ(PathOf(*second), "Port.id=\"b\"");
}

TEST_F(TInmemInstanceTest, PathHoldsTheKeysInTheOrderOfTheClass) {
  const auto pair = NewClass("Pair");
  DeclareProperty(pair, "b", TCIMValue(7), {"Key"});
  DeclareProperty(pair, "C", TCIMValue("no key"));
  DeclareProperty(pair, "A", TCIMValue::Null(TType::kString), {"Key"});
  EXPECT_EQ(NewInstance(pair)->BuildPath({}).ToString(), "Pair.A=NULL,b=7");
  EXPECT_EQ(PathOf(*NewInstance(NewClass("Keyless"))), "Keyless");
}

TEST_F(TInmemInstanceTest, ComparesByClassAndCopiesNothing) {
  const auto a = NewInstance(port, {{"Id", "a"}});
  const auto b = NewInstance(port, {{"Id", "b"}});
  const auto other = NewInstance(DefineClass("Card"), {{"Id", "a"}});
  EXPECT_TRUE(*a == *b && !(*a == *other) && !(*a < *b) && !(*b < *a));
  EXPECT_NE(*a < *other, *other < *a);
  *a = *b;
  a->ModifyInstance(b, {});
  EXPECT_EQ(TextOf(a, "Id"), "a");
  TCIMContext parameters{{"Force", TCIMValue(true)}};
  EXPECT_EQ(a->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(parameters, (TCIMContext{{"Force", TCIMValue(true)}}));
}

TEST_F(TInmemInstanceTest, IsStampedWithTheTimeOfItsMaking) {
  DeclareProperty(port, "dateTimeOFcollection", TCIMValue::Null(TType::kDateTime));
  const TCIMValue before(TOSSpecific::GetLocalTime());
  const auto instance = NewInstance(port);
  const TCIMValue after(TOSSpecific::GetLocalTime());
  const TCIMValue& stamp = instance->GetProperty("DateTimeOfCollection", {})->GetValue({});
  EXPECT_FALSE(stamp.IsNull() || stamp < before || after < stamp) << stamp.ToString(10);

  const auto mistyped = NewClass("Mistyped");
  DeclareProperty(mistyped, "DateTimeOfCollection", TCIMValue("never"));
  const TLogLine complaint{3, "Inmem: SetValue: decl is type string but value is type datetime"};
  EXPECT_EQ(Try([&] { EXPECT_EQ(TextOf(NewInstance(mistyped), "DateTimeOfCollection"), "never"); }),
            (TOutcome{0, {complaint}}));
  EXPECT_EQ(Try([&] { NewInstance(NewClass("Unstamped")); }), TOutcome{});
}

TEST_F(TInmemInstanceTest, FindsAndEnumeratesItsOwnProperties) {
  for (const char* name : {"gamma", "beta", "ALPHA"}) DeclareProperty(port, name, TCIMValue("x"));
  const auto instance = NewInstance(port, {{"BETA", "y"}});
  EXPECT_EQ(instance->GetProperty("alpha", {}), instance->GetProperty("ALPHA", {}));
  const TOutcome invalid{25, {{0, "Inmem: CIM name 'Health State' is invalid"}}};
  EXPECT_EQ(Try([&] { instance->GetProperty("Health State", {}); }), invalid);
  EXPECT_EQ(Try([&] { instance->SetPropertyValue("Health State", "1", {}); }), invalid);
  instance->GetProperty("AHealthState", {});  // is not kept
  std::string texts;
  const auto note = [&](const boost::shared_ptr<ICIMProperty>& property) {
    texts += property->GetDeclaration({})->GetName({}) + '=' + property->ToString() + ' ';
    if (property->ToString() == "y") throw TVYRException(7);
    return false;
  };
  EXPECT_EQ(Try([&] { instance->EnumerateProperties(note, {}); }), TOutcome::Quiet(7));
  EXPECT_EQ(texts, "ALPHA=x beta=y ");
}

TEST_F(TInmemInstanceTest, AnswersForStatusPropertiesThatNobodyDeclared) {
  const TCIMValue zero(static_cast<unsigned short>(0));
  const struct {
    const char* name;
    const char* declared;  ///< empty where the name is unknown
    TCIMValue value;
    int statusOfSetting;
  } rows[] = {
      {"speedDuplex", "speedDuplex", "Unknown", 0},
      {"MyspeedDuplexDescription", "speedDuplex", "Unknown", 0},
      {"MyDescriptionText", "Description", " ", 15},
      {"HealthStateDescription", "Description", " ", 15},
      {"XHealthStateY", "XHealthStateY", zero, 15},
      {"CommunicationStatus", "CommunicationStatus", zero, 15},
      {"DetailedStatus", "DetailedStatus", zero, 15},
      {"OperatingStatus", "OperatingStatus", zero, 15},
      {"PrimaryStatus", "PrimaryStatus", zero, 15},
      {"description", "", {}, 15},
      {"SpeedDuplex", "", {}, 15},
      {"healthState", "", {}, 15},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const auto device = NewClass("Device");
    const auto instance = NewInstance(device);
    EXPECT_EQ(Try([&] { instance->SetPropertyValue(row.name, row.value, {}); }),
              TOutcome::Quiet(row.statusOfSetting));
    EXPECT_EQ(Try([&] { device->GetPropertyDecl(row.declared, {}); }), TOutcome::Quiet(15));
    const bool isKnown = *row.declared != '\0';
    EXPECT_EQ(Try([&] { instance->GetProperty(row.name, {}); }), TOutcome::Quiet(isKnown ? 0 : 15));
    if (!isKnown) continue;
    EXPECT_EQ(device->GetPropertyDecl(row.declared, {})->GetName({}), row.declared);
    EXPECT_EQ(device->GetPropertyDecl(row.declared, {})->GetDefaultValue({}), row.value);
    const auto first = instance->GetProperty(row.name, {});
    first->SetValue(TCIMValue::Null(row.value.GetType()), {});
    EXPECT_EQ(instance->GetProperty(row.name, {})->GetValue({}), row.value);
    EXPECT_TRUE(first->GetValue({}).IsNull());
    const auto later = NewInstance(device);
    EXPECT_EQ(later->GetProperty(row.declared, {}), later->GetProperty(row.declared, {}));
  }
}

TEST_F(TInmemInstanceTest, ReadsWhatItsClassDeclaredSince) {
  const auto instance = NewInstance(port);
  DeclareProperty(port, "HealthState", TCIMValue("fine"));
  EXPECT_EQ(TextOf(instance, "HealthState"), "fine");
  DeclareProperty(port, "speedDuplex", TCIMValue("full"));
  const auto between = NewInstance(port);
  EXPECT_EQ(TextOf(instance, "speedDuplex"), "Unknown");  // it is declared anew
  EXPECT_EQ(TextOf(between, "speedDuplex"), "full");
}

}  // namespace
}  // namespace NZELVYR20

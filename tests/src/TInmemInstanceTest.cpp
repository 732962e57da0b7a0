#include "TInmemInstance.h"

#include <map>
#include <set>

#include "TCIMDateTime.h"
#include "TOSSpecific.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// What the random operations do not reach.
class TInmemInstanceTest : public TRepositoryTest {
 protected:
  TClass port = DefineClass("Port");
};

TEST_F(TInmemInstanceTest, ValidatesWhatItsFlagsAskFor) {
  const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
  const auto lost = RefTo(NewInstance(port, {{"Id", "b"}}));
  const struct {
    int flags;
    TValues values;
    int status;
  } rows[] = {
      {0, {{"From", lost}}, 0},  {1, {{"From", lost}}, 18}, {1, {{"From", lost}, {"To", lost}}, 0},
      {2, {{"From", lost}}, 15}, {3, {{"From", lost}}, 18},
  };
  for (const auto& row : rows) {
    TInmemInstance instance(link, row.flags);
    for (const auto& [name, value] : row.values) instance.SetPropertyValue(name, value, {});
    EXPECT_EQ(Try([&] { instance.Validate({}); }).status, row.status) << row.flags;
  }
}

TEST_F(TInmemInstanceTest, ComparesByClassAndCopiesNothing) {
  const auto a = NewInstance(port, {{"Id", "a"}});
  const auto b = NewInstance(port, {{"Id", "b"}});
  const auto other = NewInstance(DefineClass("Card"), {{"Id", "a"}});
  EXPECT_TRUE(*a == *b && !(*a == *other) && !(*a < *b) && !(*b < *a));
  EXPECT_NE(*a < *other, *other < *a);
  *a = *b;
  a->ModifyInstance(b, {});
  EXPECT_EQ(a->GetProperty("Id", {})->ToString(), "a");
  TCIMContext parameters{{"Force", TCIMValue(true)}};
  EXPECT_EQ(a->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(parameters, (TCIMContext{{"Force", TCIMValue(true)}}));
}

TEST_F(TInmemInstanceTest, EachPropertyHasAnOwnerOfItsOwnWhileItIsHeld) {
  for (const char* name : {"Speed", "Slot"}) DeclareProperty(port, name, TCIMValue(1U));
  auto instance = NewInstance(port, {{"Id", "a"}});
  std::set<boost::shared_ptr<ICIMProperty>> held;
  std::map<boost::weak_ptr<ICIMProperty>, std::string> names;
  const auto take = [&](const boost::shared_ptr<ICIMProperty>& property) {
    held.insert(property);
    names[property] = property->GetDeclaration({})->GetName({});
    return true;
  };
  instance->EnumerateProperties(take, {});
  for (const char* name : {"Slot", "Id", "Speed", "ID"}) take(instance->GetProperty(name, {}));
  EXPECT_EQ(held.size(), 3U);
  EXPECT_EQ(names.size(), 3U);
  held.erase(instance->GetProperty("Slot", {}));  // in whatever order they go
  EXPECT_EQ(names[instance->GetProperty("Id", {})], "Id");
  const boost::weak_ptr<ICIMProperty> speed = instance->GetProperty("Speed", {});
  boost::weak_ptr<ICIMInstance> watched = instance;
  instance.reset();
  EXPECT_EQ(names[speed.lock()], "Speed");  // who holds a property holds its instance
  EXPECT_EQ(speed.lock()->GetValue({}), TCIMValue(1U));
  held.clear();
  EXPECT_TRUE(speed.expired() && watched.expired());
  EXPECT_EQ(names.size(), 3U);
}

TEST_F(TInmemInstanceTest, IsStampedWithTheTimeOfItsMaking) {
  DeclareProperty(port, "dateTimeOFcollection", TCIMValue::Null(TType::kDateTime));
  const TCIMValue before(TOSSpecific::GetLocalTime());
  const auto instance = NewInstance(port);
  const TCIMValue after(TOSSpecific::GetLocalTime());
  const TCIMValue& stamp = instance->GetProperty("DateTimeOfCollection", {})->GetValue({});
  EXPECT_FALSE(stamp.IsNull() || stamp < before || after < stamp) << stamp.ToString(10);
}

class TTraversalTest : public TInmemInstanceTest {
 protected:
  using TIds = std::multiset<std::string>;  ///< association classes come in no certain order

  TTraversalTest() {
    const auto slot = DefineAssociation("Slot", {{"Board", card}, {"Left", port}, {"Right", port}});
    PutInstance(slot, {{"Board", RefTo(c)}, {"Left", RefTo(l)}, {"Right", RefTo(r)}});
  }

  /// Answers false, which no walk heeds, or throws what it was given.
  TCIMInstanceCallback Note(int status = 0) {
    found.clear();
    return [this, status](const TInstance& instance) {
      found.insert(instance->GetProperty("Id", {})->ToString());
      if (status != 0) throw TVYRException(status);
      return false;
    };
  }

  TClass card = DefineClass("Card");
  TInstance c = PutInstance(card, "c"), l = PutInstance(port, "l"), r = PutInstance(port, "r");
  TIds found;
};

TEST_F(TTraversalTest, OfThreeEndsTheFirstFarOneCounts) {
  const struct {
    const char* role;
    const char* resultRole;
    int thrown;
    TIds found;
  } rows[] = {{"", "", 0, {"l"}},       {"left", "", 0, {"r"}},     {"", "Right", 0, {"r"}},
              {"", "Board", 0, {}},     {"", "", 15, {"l", "r"}},   {"", "", 7, {"l"}},
              {"", "Right", 15, {"r"}}, {"Right", "Left", 0, {"l"}}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.role) + "/" + row.resultRole);
    c->EnumerateAssociatedInstances(Note(row.thrown), "", "Port", row.role, row.resultRole, {});
    EXPECT_EQ(found, row.found);
  }
}

TEST_F(TTraversalTest, StepsPassOtherFailuresAndAnswerWhetherToGoOn) {
  const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
  DeclareProperty(link, "Id", "one");
  const auto from = boost::dynamic_pointer_cast<TInmemInstance>(l);
  const auto one = boost::dynamic_pointer_cast<TInmemInstance>(
      PutInstance(link, {{"From", RefTo(l)}, {"To", RefTo(r)}}));
  for (const int status : {0, 7}) {
    const auto note = Note(status);
    const TOutcome outcome = TOutcome::Quiet(status);
    EXPECT_EQ(Try([&] { EXPECT_FALSE(from->ExamineCandidate(note, port, "", one)); }), outcome);
    EXPECT_EQ(Try([&] { EXPECT_TRUE(from->ExamineCandidateClassInstance(note, one)); }), outcome);
    EXPECT_EQ(
        Try([&] { EXPECT_TRUE(from->ExamineCandidateClassInstanceWithRole(note, "From", one)); }),
        outcome);
    EXPECT_EQ(
        Try([&] { EXPECT_TRUE(from->ExamineCandidateWithResultRole(note, port, "To", one)); }),
        outcome);
    EXPECT_EQ(found, (TIds{"one", "one", "r", "r"}));
    EXPECT_TRUE(from->ExamineCandidate(note, card, "", one));
  }
}

}  // namespace
}  // namespace NZELVYR20

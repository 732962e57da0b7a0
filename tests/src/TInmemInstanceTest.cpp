#include "TInmemInstance.h"

#include <set>

#include "TOSSpecific.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

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
    EXPECT_EQ(StatusOf([&] { instance.Validate({}); }), row.status) << row.flags;
  }
}

TEST_F(TInmemInstanceTest, CopiesNothing) {
  const auto a = NewInstance(port, {{"Id", "a"}});
  const auto b = NewInstance(port, {{"Id", "b"}});
  *a = *b;
  a->ModifyInstance(b, {});
  EXPECT_EQ(a->GetProperty("Id", {})->ToString(), "a");
  TCIMContext parameters{{"Force", TCIMValue(true)}};
  EXPECT_EQ(a->InvokeMethod("Reset", parameters, {}), TCIMValue());
  EXPECT_EQ(parameters, (TCIMContext{{"Force", TCIMValue(true)}}));
}

TEST_F(TInmemInstanceTest, AHeldPropertyHoldsItsInstanceAndIsTheSameToAll) {
  for (const char* name : {"Speed", "Slot"}) DeclareProperty(port, name, TCIMValue(1U));
  auto instance = NewInstance(port);
  std::set<boost::shared_ptr<ICIMProperty>> held;
  for (const char* name : {"Slot", "Id", "Speed", "ID"}) {
    held.insert(instance->GetProperty(name, {}));
  }
  EXPECT_EQ(held.size(), 3U);
  held.erase(instance->GetProperty("Slot", {}));  // in whatever order they go
  const boost::weak_ptr<ICIMProperty> id = instance->GetProperty("Id", {});
  EXPECT_EQ(held.count(id.lock()), 1U);
  const boost::weak_ptr<ICIMInstance> watched = instance;
  instance.reset();
  EXPECT_EQ(id.lock()->GetDeclaration({})->GetName({}), "Id");
  held.clear();
  EXPECT_TRUE(id.expired());
  EXPECT_TRUE(watched.expired());
}

TEST_F(TInmemInstanceTest, IsStampedWithTheTimeOfItsMaking) {
  DeclareProperty(port, "dateTimeOFcollection", TCIMValue::Null(TType::kDateTime));
  const TCIMValue before(TOSSpecific::GetLocalTime());
  const auto instance = NewInstance(port);
  const TCIMValue after(TOSSpecific::GetLocalTime());
  const TCIMValue& stamp = instance->GetProperty("DateTimeOfCollection", {})->GetValue({});
  EXPECT_FALSE(stamp.IsNull() || stamp < before || after < stamp) << stamp.ToString(10);
}

TEST_F(TInmemInstanceTest, StepsOfAWalkPassOtherFailuresAndAnswerWhetherToGoOn) {
  const auto card = DefineClass("Card");
  const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
  DeclareProperty(link, "Id", "one");
  const auto l = PutInstance(port, "l");
  const auto from = boost::dynamic_pointer_cast<TInmemInstance>(l);
  const auto one = boost::dynamic_pointer_cast<TInmemInstance>(
      PutInstance(link, {{"From", RefTo(l)}, {"To", RefTo(PutInstance(port, "r"))}}));
  for (const int status : {0, 7}) {
    TNames found;
    const TCIMInstanceCallback note = [&, status](const TInstance& instance) {
      found.push_back(instance->GetProperty("Id", {})->ToString());
      if (status != 0) throw TVYRException(status);
      return false;
    };
    const auto expect = [&](const auto& step, bool goesOn) {
      EXPECT_EQ(Try([&] { EXPECT_EQ(step(), goesOn); }), Quiet(status));
    };
    expect([&] { return from->ExamineCandidate(note, port, "", one); }, false);
    expect([&] { return from->ExamineCandidateClassInstance(note, one); }, true);
    expect([&] { return from->ExamineCandidateClassInstanceWithRole(note, "From", one); }, true);
    expect([&] { return from->ExamineCandidateWithResultRole(note, port, "To", one); }, true);
    EXPECT_EQ(found, (TNames{"r", "one", "one", "r"}));
    EXPECT_TRUE(from->ExamineCandidate(note, card, "", one));
  }
}

}  // namespace
}  // namespace NZELVYR20

#include <map>
#include <set>

#include "TInmemInstance.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// Ports, fast ports and cards, and associations between them. Every instance has an "Id".
class TTraversalTest : public TRepositoryTest {
 protected:
  using TIds = std::multiset<std::string>;  ///< association classes come in no certain order

  TTraversalTest() {
    for (const char* id : {"p1", "p2", "p3", "p4", "p5", "p6", "gone"})
      at[id] = PutInstance(port, id);
    for (const char* id : {"f1", "f2", "f3"}) at[id] = PutInstance(fastPort, id);
    for (const char* id : {"c1", "c2"}) at[id] = PutInstance(card, id);
    const auto link = DefineAssociation("Link", {{"From", port}, {"To", port}});
    const auto wire = DefineAssociation("Wire", {{"Board", card}, {"Plug", port}});
    const auto slot = DefineAssociation("Slot", {{"Board", card}, {"Left", port}, {"Right", port}});
    const auto uplink = DefineAssociation("Uplink", {{"Fast", fastPort}, {"Any", port}});
    for (const auto& cimClass : {link, wire, slot, uplink}) DeclareProperty(cimClass, "Id", "");
    const auto subLink = DefineAssociation("SubLink", {}, link);
    Put(link, "one", {{"From", Ref("p1")}, {"To", Ref("p2")}});
    Put(link, "back", {{"From", Ref("p2")}, {"To", Ref("p1")}});
    Put(link, "self", {{"From", Ref("p3")}, {"To", Ref("p3")}});
    Put(link, "lost", {{"From", Ref("p1")}, {"To", Ref("gone")}});
    Put(link, "found", {{"From", Ref("gone")}, {"To", Ref("p4")}});
    Put(subLink, "sub", {{"From", Ref("p1")}, {"To", Ref("p3")}});
    Put(wire, "wire", {{"Board", Ref("c1")}, {"Plug", Ref("p1")}});
    Put(slot, "slot", {{"Board", Ref("c2")}, {"Left", Ref("p5")}, {"Right", Ref("p6")}});
    Put(link, "fast", {{"From", Ref("f1")}, {"To", Ref("f2")}});
    Put(link, "wide", {{"From", WideRef("f3")}, {"To", WideRef("f1")}});
    Put(uplink, "up", {{"Fast", Ref("f2")}, {"Any", Ref("p4")}});
    at["gone"]->Delete({});
  }

  void Put(const TClass& cimClass, const char* id, const TValues& values) {
    at[id] = NewInstance(cimClass, values);
    at[id]->SetPropertyValue("Id", id, {});
    at[id]->AddToNamespace({});
  }

  TCIMValue Ref(const char* id) { return RefTo(at[id]); }

  /// A reference whose class is wider than that of the instance.
  TCIMValue WideRef(const char* id) { return TCIMValue(at[id]->GetReference({}), port); }

  /// Answers false, which no walk heeds, or throws what it was given.
  TCIMInstanceCallback Note(int status = 0) {
    found.clear();
    return [this, status](const TInstance& instance) {
      found.insert(instance->GetProperty("Id", {})->ToString());
      if (status != 0) throw TVYRException(status);
      return false;
    };
  }

  TClass port = DefineClass("Port"), fastPort = DefineClass("FastPort", port),
         card = DefineClass("Card");
  std::map<std::string, TInstance> at;
  TIds found;
};

TEST_F(TTraversalTest, References) {
  const struct {
    const char* from;
    const char* resultClass;
    const char* role;
    TIds found;
    int status = 0;
  } rows[] = {
      {"p1", "", "", {"back", "lost", "one", "sub", "wire"}},
      {"p1", "Link", "", {"back", "lost", "one", "sub"}},
      {"p1", "subLINK", "", {"sub"}},
      {"p1", "Card", "", {}},
      {"p1", "Unknown", "", {}, 15},
      {"p1", "", "fROM", {"lost", "one", "sub"}},
      {"p1", "SubLink", "From", {"sub"}},
      {"p1", "", "To", {"back"}},
      {"p1", "", "Plug", {"wire"}},
      {"p1", "", "Board", {}},
      {"p1", "", "Nobody", {}},
      {"p3", "", "", {"self", "sub"}},
      {"p4", "", "", {"found", "up"}},
      {"f1", "", "To", {"wide"}},
      {"f2", "", "", {"fast", "up"}},
      {"f2", "", "Fast", {}},  // "Uplink" is registered with "Port" only, and this end is no "Port"
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.from) + " " + row.resultClass + "/" + row.role);
    const auto walk = [&] {
      at[row.from]->EnumerateAssociationInstances(Note(), row.resultClass, row.role, {});
    };
    EXPECT_EQ(Try(walk), TOutcome::Quiet(row.status));
    EXPECT_EQ(found, row.found);
  }
}

TEST_F(TTraversalTest, Associators) {
  const struct {
    const char* description;
    const char* from;
    const char* assocClass;
    const char* resultClass;
    const char* role;
    const char* resultRole;
    TIds found;
    int status = 0;
  } rows[] = {
      {"ends of the class", "p1", "", "Port", "", "", {"p2", "p2", "p3"}},
      {"ends of another class", "p1", "", "Card", "", "", {"c1"}},
      {"no class, no results", "p1", "", "", "", "", {}},
      {"unknown class, no results", "p1", "", "Unknown", "", "", {}},
      {"by one association", "p1", "SubLink", "Port", "", "", {"p3"}},
      {"unknown association", "p1", "Unknown", "Port", "", "", {}, 15},
      {"role, wherever it points", "p1", "Link", "Port", "From", "", {"p1", "p2", "p3"}},
      {"role in another case", "p1", "Link", "Port", "tO", "", {"p1", "p1", "p1", "p2"}},
      {"role of no end", "p1", "Link", "Port", "X", "", {"p1", "p1", "p1", "p2"}},
      {"result role, be it the own end", "p1", "", "Port", "", "tO", {"p1", "p2", "p3"}},
      {"result role: role has no effect", "p1", "", "Port", "To", "To", {"p1", "p2", "p3"}},
      {"result role of another class", "p1", "", "Card", "", "To", {}},
      {"result role of no end", "p1", "", "Port", "", "X", {}},
      {"two references to one object", "p3", "Link", "Port", "", "", {"p1", "p3"}},
      {"own end behind a lost one", "p4", "Link", "Port", "", "", {}},
      {"three ends: the first", "c2", "", "Port", "", "", {"p5"}},
      {"three ends, role", "c2", "", "Port", "left", "", {"p6"}},
      {"three ends, result role", "c2", "", "Port", "", "Right", {"p6"}},
      {"far end of a subclass", "f1", "", "FastPort", "", "", {"f2"}},
      {"far end declared wider", "f3", "", "FastPort", "", "", {}},
      {"own end declared wider", "f3", "", "Port", "", "", {"f3"}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const auto walk = [&] {
      at[row.from]->EnumerateAssociatedInstances(Note(), row.assocClass, row.resultClass, row.role,
                                                 row.resultRole, {});
    };
    EXPECT_EQ(Try(walk), TOutcome::Quiet(row.status));
    EXPECT_EQ(found, row.found);
  }
}

TEST_F(TTraversalTest, MissesOfTheCallbackLeadToTheNextProperty) {
  at["p3"]->EnumerateAssociationInstances(Note(15), "", "", {});
  EXPECT_EQ(found, (TIds{"self", "self", "sub"}));
  at["p3"]->EnumerateAssociationInstances(Note(15), "", "From", {});
  EXPECT_EQ(found, TIds{"self"});
  at["c2"]->EnumerateAssociatedInstances(Note(15), "", "Port", "", "", {});
  EXPECT_EQ(found, (TIds{"p5", "p6"}));
  at["p3"]->EnumerateAssociationInstances(Note(7), "", "", {});  // the walk discards it
  EXPECT_EQ(found, (TIds{"self", "sub"}));
}

TEST_F(TTraversalTest, StepsPassOtherFailuresAndAnswerWhetherToGoOn) {
  const auto from = boost::dynamic_pointer_cast<TInmemInstance>(at["p1"]);
  const auto one = boost::dynamic_pointer_cast<TInmemInstance>(at["one"]);
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
    EXPECT_EQ(found, (TIds{"one", "one", "p2", "p2"}));
    EXPECT_TRUE(from->ExamineCandidate(note, card, "", one));
  }
}

}  // namespace
}  // namespace NZELVYR20

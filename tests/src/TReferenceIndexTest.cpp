#include <map>

#include "CheckIndex.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// A namespace of the host's own, in which paths lead where the host wants.
struct THostNamespace : TInmemNamespace {
  THostNamespace() : TInmemNamespace(false) {}
  using TInmemNamespace::operator=;
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path, TCIMContext) override {
    ++asked;
    const auto present = answer;  // it may change while it is given
    return present(path);
  }
  std::function<TInstance(const TCIMReference&)> answer;
  int asked = 0;
};

/// Two elements, and links between them with paths that the host resolves.
class TReferenceIndexTest : public TRedefinitionTest {
 protected:
  TReferenceIndexTest() { PassOn(); }

  /// The host asks the repository in its turn.
  void PassOn() {
    host->answer = [this](const TCIMReference& path) { return space->GetInstance(path, {}); };
  }
  TCIMValue HostPath(const char* id) const {
    TCIMReference path(host, {});
    path.SetClass(element);
    path.AddKeyValue("Id", id);
    return TCIMValue(path);
  }
  TInstance NewLink(const char* id, const TCIMValue& system, const TCIMValue& part) const {
    return NewInstance(link, {{"Id", id}, {"System", system}, {"Part", part}});
  }

  static TNames ReferencesOf(const TInstance& instance, const char* role = "") {
    return NamesOf(
        [&](const TNamer& note) { instance->EnumerateAssociationInstances(note, "", role, {}); });
  }
  static TNames AssociatorsOf(const TInstance& instance) {
    return NamesOf([&](const TNamer& note) {
      instance->EnumerateAssociatedInstances(note, "", "CIM_Element", "", "", {});
    });
  }
  /// What the walk that looks at every instance of the association finds.
  TNames FindOneByOne(const TInstance& target) {
    return NamesOf([&](const TNamer& note) {
      const auto look = [&](const TInstance& association) {
        bool refers = false;
        for (const char* end : {"System", "Part"}) {
          const TCIMReference path(association->GetProperty(end, {})->GetValue({}));
          Try([&] { refers |= path.GetCIMElement(false) == target; });
        }
        return !refers || note(association);
      };
      link->EnumerateInstances(look, false, {});
    });
  }
  template <class TOperation>
  int CountAsked(TOperation operation) {
    host->asked = 0;
    operation();
    return host->asked;
  }

  const TClass twin = MakeClass(space, "CIM_Element", TCIMValue::Null(TType::kString));
  const TClass element = DefineClass("CIM_Element");
  const TClass link = DefineAssociation("CIM_Link", {{"System", element}, {"Part", element}});
  const boost::shared_ptr<THostNamespace> host = boost::make_shared<THostNamespace>();
  const TInstance a = AddInstance(element, "a");
  const TInstance b = AddInstance(element, "b");
};

TEST_F(TReferenceIndexTest, TheHostIsAskedOnlyForWhatIsOpen) {
  const auto refer = [this] { ReferencesOf(b); };
  EXPECT_EQ(CountAsked([&] { NewLink("1", HostPath("a"), HostPath("b"))->AddToNamespace({}); }), 2);
  EXPECT_EQ(CountAsked([&] { refer(), AssociatorsOf(b); }), 0);
  host->answer = [this](const TCIMReference&) { return b; };
  NewLink("2", HostPath("b"), HostPath("a"))->AddToNamespace({});
  EXPECT_EQ(CountAsked(refer), 1) << "Part, which is looked at first, leads there";
  EXPECT_EQ(CountAsked([&] { ReferencesOf(a); }), 2);
  EXPECT_EQ(CountAsked([&] { ReferencesOf(b, "System"); }), 1);
  PassOn();
  EXPECT_EQ(CountAsked(refer), 2);
  b->AddToNamespace({});  // in its own place
  EXPECT_EQ(CountAsked([&] { refer(), ReferencesOf(a); }), 0);
  host->answer = [this](const TCIMReference&) { return a; };
  NewLink("3", HostPath("a"), RefTo(a))->AddToNamespace({});
  EXPECT_EQ(CountAsked(refer), 1) << "the namespace gave it for the other path of that text";
}

TEST_F(TReferenceIndexTest, AnInstanceStaysWhileItIsValidated) {
  TInstance pending = NewLink("1", HostPath("a"), RefTo(a));
  const boost::weak_ptr<ICIMInstance> watched = pending;
  host->answer = [&](const TCIMReference&) {
    pending.reset();
    EXPECT_FALSE(watched.expired());
    return a;
  };
  pending->Validate({});
  EXPECT_TRUE(watched.expired());
}

/// Whatever the host does while it is asked, walks find what looking at everything finds.
TEST_F(TReferenceIndexTest, AHostMayActWhileItIsAsked) {
  TInstance pending;
  const std::vector<std::pair<const char*, std::function<void()>>> acts{
      {"sets the reference", [&] { pending->SetPropertyValue("System", RefTo(b), {}); }},
      {"sets the other", [&] { pending->SetPropertyValue("Part", RefTo(b), {}); }},
      {"sets a default", [&] { link->GetPropertyDecl("Part", {})->SetDefaultValue(RefTo(b), {}); }},
      {"replaces the end", [&] { AddInstance(element, "a"); }},
      {"takes the end out", [&] { a->Delete({}); }},
      {"adds the instance", [&] { link->AddInstance(pending); }},
      {"takes the instance out", [&] { pending->Delete({}); }},
      {"replaces the class of the end", [&] { twin->AddToNamespace({}); }},
      {"clears", [&] { space->ClearInstances(); }},
      {"walks", [&] { ReferencesOf(a), AssociatorsOf(b); }},
      {"forgets the instance", [&] { pending.reset(); }},
  };
  for (const auto& [description, act] : acts) {
    for (const bool isAdded : {false, true}) {
      SCOPED_TRACE(description + std::string(isAdded ? ", in a walk" : ", while it is added"));
      element->AddToNamespace({}), space->ClearInstances();
      link->GetPropertyDecl("Part", {})->SetDefaultValue(TCIMValue::NullReference(element), {});
      a->AddToNamespace({}), b->AddToNamespace({});
      pending = NewLink("1", HostPath("a"), RefTo(a));
      if (isAdded) link->AddInstance(pending);
      host->answer = [&, &go = act](const TCIMReference& asked) {
        auto given = space->GetInstance(asked, {});
        PassOn();
        go();
        return given;
      };
      isAdded ? void(AssociatorsOf(b)) : pending->AddToNamespace({});
      PassOn();
      for (const auto& end : {a, b, a, b}) {
        EXPECT_EQ(ReferencesOf(end), FindOneByOne(end));
        for (const TClass& cimClass : {element, link}) {
          EXPECT_EQ(CheckIndex(static_cast<const TInmemClass&>(*cimClass)), "");
        }
      }
    }
  }
}

TEST_F(TReferenceIndexTest, AWalkMeetsWhatComesToReferAhead) {
  std::map<std::string, TInstance> links;
  for (const char* id : {"1", "2", "3", "4", "5"}) {
    const auto end = RefTo(*id % 2 == 1 ? a : b);
    (links[id] = NewLink(id, end, end))->AddToNamespace({});
  }
  std::string visited;
  const auto act = [&](const TInstance& association) {
    visited += association->GetProperty("Id", {})->ToString();
    for (const char* id : {"4", "2"}) links[id]->SetPropertyValue("Part", RefTo(a), {});
    for (const char* property : {"Part", "System"}) {
      links["3"]->SetPropertyValue(property, RefTo(b), {});
    }
    NewLink("45", RefTo(a), RefTo(a))->AddToNamespace({});
    return true;
  };
  a->EnumerateAssociationInstances(act, "", "", {});
  EXPECT_EQ(visited, "1245");
}

/// Instances made before their class had references stand in no index, until others replace them.
TEST_F(TReferenceIndexTest, AWalkTakesNothingForGrantedThatChangesAhead) {
  const TClass late = MakeClass(space, "CIM_Late", "");
  const TInstance early[] = {NewInstance(late, {{"Id", "2"}}), NewInstance(late, {{"Id", "3"}})};
  Qualify(*late, "Association");
  DeclareProperty(late, "System", TCIMValue::NullReference(element));
  const auto note = DeclareProperty(late, "Note", "");
  late->AddToNamespace({}), early[0]->AddToNamespace({});
  const auto put = [&](const char* id, const TInstance& system) {
    PutInstance(late, {{"Id", id}, {"System", RefTo(system)}});
  };
  put("1", a), put("3", a), put("4", b);
  const std::pair<std::function<void()>, const char*> acts[] = {
      {[&] { put("2", b), early[1]->AddToNamespace({}); }, "1"},
      {[&] { note->SetDefaultValue(RefTo(a), {}), ReferencesOf(b); }, "124"}};
  for (const auto& [act, expected] : acts) {
    std::string visited;
    const auto visit = [&, &go = act](const TInstance& association) {
      visited += association->GetProperty("Id", {})->ToString();
      go();
      return true;
    };
    a->EnumerateAssociationInstances(visit, "", "", {});
    EXPECT_EQ(visited, expected);
  }
}

}  // namespace
}  // namespace NZELVYR20

#include <boost/make_shared.hpp>
#include <map>

#include "CheckIndex.h"
#include "TCIMReference.h"
#include "TInmemClass.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

using TAnswer = std::function<TInstance(const TCIMReference&)>;

/// A namespace of the host's own, in which paths lead where the host wants.
struct TWilfulNamespace : TInmemNamespace {
  TWilfulNamespace() : TInmemNamespace(false) {}
  using TInmemNamespace::operator=;
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path, TCIMContext) override {
    ++asked;
    const TAnswer present = answer;  // it may change while it is given
    return present(path);
  }
  TAnswer answer;
  int asked = 0;
};

class TReferenceIndexTest : public TRedefinitionTest {
 protected:
  static TNames ReferencesOf(const TInstance& instance) {
    return NamesOf(
        [&](const TNamer& note) { instance->EnumerateAssociationInstances(note, "", "", {}); });
  }

  /// What the walk that looks at every instance of the association finds.
  TNames FindOneByOne(const TInstance& target) const {
    TNames found;
    const auto look = [&](const TInstance& association) {
      bool refers = false;
      for (const char* end : {"System", "Part"}) {
        const TCIMValue& value = association->GetProperty(end, {})->GetValue({});
        StatusOf(
            [&] { refers |= static_cast<TCIMReference>(value).GetCIMElement(false) == target; });
      }
      if (refers) found.push_back(PathOf(*association));
      return true;
    };
    link->EnumerateInstances(look, false, {});
    return found;
  }

  TInstance PutLink(const char* id, const TCIMValue& system, const TCIMValue& part) {
    return PutInstance(link, {{"Id", id}, {"System", system}, {"Part", part}});
  }

  void SetUp() override {
    element = DefineClass("CIM_Element");
    link = NewClass("CIM_Link");
    Qualify(*link, "Association");
    DeclareProperty(link, "Id", TCIMValue::Null(TType::kString), {"Key"});
    DeclareProperty(link, "System", TCIMValue::NullReference(element));
    DeclareProperty(link, "Part", TCIMValue::NullReference(element));
    link->AddToNamespace({});
    host = boost::make_shared<TWilfulNamespace>();
    host->answer = PassOn();
  }

  /// The host asks the repository in its turn.
  TAnswer PassOn() {
    return [this](const TCIMReference& path) { return space->GetInstance(path, {}); };
  }
  static TAnswer Always(const TInstance& instance) {
    return [instance](const TCIMReference&) { return instance; };
  }

  /// A path that the host resolves.
  TCIMReference HostPath(const char* id, const TClass& cimClass = {}) const {
    TCIMReference path(host, {});
    path.SetClass(cimClass ? cimClass : element);
    path.AddKeyValue("Id", id);
    return path;
  }

  /// How often the host is asked.
  template <class TOperation>
  int CountAsked(TOperation operation) {
    host->asked = 0;
    operation();
    return host->asked;
  }

  static TNames AssociatorsOf(const TInstance& instance) {
    return NamesOf([&](const TNamer& note) {
      instance->EnumerateAssociatedInstances(note, "", "CIM_Element", "", "", {});
    });
  }

  void CheckAll() const {
    for (const TClass& cimClass : {element, link}) {
      ASSERT_EQ(CheckIndex(static_cast<const TInmemClass&>(*cimClass)), "");
    }
  }

  TClass element, link;
  boost::shared_ptr<TWilfulNamespace> host;
};

TEST_F(TReferenceIndexTest, AHostThatAnswersByItselfDecidesAnewEachTime) {
  const auto a = PutInstance(element, "a");
  const auto b = PutInstance(element, "b");
  host->answer = Always(b);
  PutLink("1", TCIMValue(HostPath("a")), RefTo(b));
  PutLink("2", TCIMValue(HostPath("a")), RefTo(a));
  const TNames both{"CIM_Link.id=\"1\"", "CIM_Link.id=\"2\""};
  const auto c = PutInstance(element, "c");
  const struct {
    const char* description;
    TAnswer answer;
    TNames ofA, ofB, ofC;
  } rows[] = {
      {"another than the path says", Always(b), {both[1]}, both, {}},
      {"one more", Always(c), {both[1]}, {both[0]}, both},
      {"nothing", Always({}), {both[1]}, {both[0]}, {}},
      {"what the path says, but by itself", Always(a), both, {both[0]}, {}},
      {"another again", Always(c), {both[1]}, {both[0]}, both},
      {"what the repository says to another question",
       [&](const TCIMReference&) { return space->GetInstance(b->GetReference({}), {}); },
       {both[1]},
       both,
       {}},
      {"nothing again", Always({}), {both[1]}, {both[0]}, {}},
      {"what the repository says", PassOn(), both, {both[0]}, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    host->answer = row.answer;
    EXPECT_EQ(ReferencesOf(b), row.ofB);
    EXPECT_EQ(ReferencesOf(a), row.ofA);
    EXPECT_EQ(ReferencesOf(c), row.ofC);
    CheckAll();
  }
  host->answer = [](const TCIMReference&) -> TInstance { throw TVYRException(99); };
  EXPECT_EQ(ReferencesOf(a), both);  // it has passed the question on before
  a->Delete({});
  PutInstance(element, "b");
  EXPECT_EQ(ReferencesOf(c), TNames{});  // what the callback's walk throws is lost with its element
  EXPECT_EQ(CountAsked([&] { ReferencesOf(c); }), 2);
}

TEST_F(TReferenceIndexTest, TheHostIsAskedOnlyForWhatIsOpen) {
  const auto a = PutInstance(element, "a");
  const auto b = PutInstance(element, "b");
  const auto path = TCIMValue(HostPath("b"));
  EXPECT_EQ(CountAsked([&] { PutLink("1", TCIMValue(HostPath("a")), path); }), 2);
  EXPECT_EQ(CountAsked([&] { ReferencesOf(a), AssociatorsOf(b); }), 0);
  host->answer = Always(b);
  PutLink("2", path, TCIMValue(HostPath("a")));  // "Part", which is looked at first, leads to b
  EXPECT_EQ(CountAsked([&] { EXPECT_EQ(ReferencesOf(b).size(), 2U); }), 1);
  EXPECT_EQ(CountAsked([&] { EXPECT_EQ(ReferencesOf(a).size(), 1U); }), 2);
  const auto byRole = [&] {
    b->EnumerateAssociationInstances([](const TInstance&) { return true; }, "", "System", {});
  };
  EXPECT_EQ(CountAsked(byRole), 1);
  host->answer = PassOn();
  EXPECT_EQ(CountAsked([&] { ReferencesOf(b); }), 2);
  EXPECT_EQ(CountAsked([&] { ReferencesOf(b), ReferencesOf(a); }), 0);
  b->AddToNamespace({});  // in its own place
  EXPECT_EQ(CountAsked([&] { ReferencesOf(b); }), 0);
  b->Delete({});
  const auto made = NewInstance(element, {{"Id", "b"}});
  host->answer = Always(made);
  EXPECT_EQ(AssociatorsOf(a), (TNames{PathOf(*made), PathOf(*made)}));
  EXPECT_EQ(CountAsked([&] { ReferencesOf(a); }), 1);
  CheckAll();
}

/// Whatever the host does while it is asked, walks find what looking at everything finds.
TEST_F(TReferenceIndexTest, AHostMayActWhileItIsAsked) {
  TInstance pending;
  const auto a = PutInstance(element, "a");
  const auto b = PutInstance(element, "b");
  const std::vector<std::pair<const char*, std::function<void()>>> acts{
      {"sets the reference", [&] { pending->SetPropertyValue("System", RefTo(b), {}); }},
      {"sets the other", [&] { pending->SetPropertyValue("Part", RefTo(b), {}); }},
      {"sets a default", [&] { link->GetPropertyDecl("Part", {})->SetDefaultValue(RefTo(b), {}); }},
      {"replaces the end", [&] { PutInstance(element, "a"); }},
      {"takes the end out", [&] { a->Delete({}); }},
      {"adds the instance", [&] { link->AddInstance(pending); }},
      {"takes the instance out", [&] { pending->Delete({}); }},
      {"replaces the class of the end", [&] { element = DefineClass("CIM_Element"); }},
      {"clears", [&] { space->ClearInstances(); }},
      {"walks", [&] { ReferencesOf(a), AssociatorsOf(b); }},
  };
  for (const auto& act : acts) {
    for (const bool isAdded : {false, true}) {
      SCOPED_TRACE(std::string(act.first) + (isAdded ? ", during a walk" : ", while it is added"));
      space->ClearInstances();
      link->GetPropertyDecl("Part", {})->SetDefaultValue(TCIMValue::NullReference(element), {});
      a->AddToNamespace({}), b->AddToNamespace({});
      // The value alone holds its class.
      const auto path = TCIMValue(HostPath("a"), space->AllocateClass("CIM_Sub", element, {}));
      pending = NewInstance(link, {{"Id", "1"}, {"System", path}, {"Part", RefTo(a)}});
      const auto answer = [&, act](const TCIMReference& asked) {
        auto given = space->GetInstance(asked, {});
        host->answer = PassOn();
        act.second();
        return given;
      };
      if (isAdded) link->AddInstance(pending);
      host->answer = answer;
      isAdded ? void(AssociatorsOf(b)) : pending->AddToNamespace({});
      host->answer = PassOn();
      for (int walk = 0; walk < 2; ++walk) {
        for (const auto& end : {a, b}) EXPECT_EQ(ReferencesOf(end), FindOneByOne(end));
        CheckAll();
      }
    }
  }
}

TEST_F(TReferenceIndexTest, AWalkMeetsWhatComesToReferAhead) {
  const auto a = PutInstance(element, "a");
  const auto b = PutInstance(element, "b");
  std::map<std::string, TInstance> links;
  for (const char* id : {"1", "2", "3", "4", "5", "6", "7"}) {
    const auto& end = *id % 2 == 1 ? a : b;
    links[id] = PutLink(id, RefTo(end), RefTo(end));
  }
  const auto turn = [&](const char* id, const TInstance& end) {
    links[id]->SetPropertyValue("Part", RefTo(end), {});
    links[id]->SetPropertyValue("System", RefTo(end), {});
  };
  std::string visited;
  const auto act = [&](const TInstance& association) {
    const std::string id = association->GetProperty("Id", {})->ToString();
    visited += id;
    if (id == "1") turn("6", a), turn("4", a), turn("3", b), turn("4", a);
    if (id == "4") turn("2", a), links["5"]->Delete({}), PutLink("55", RefTo(a), RefTo(a));
    if (id == "6") turn("1", a), PutLink("7", RefTo(a), RefTo(b)), PutLink("6", RefTo(a), RefTo(a));
    return true;
  };
  a->EnumerateAssociationInstances(act, "", "", {});
  EXPECT_EQ(visited, "1467");
  CheckAll();
}

}  // namespace
}  // namespace NZELVYR20

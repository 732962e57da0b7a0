#include <boost/make_shared.hpp>
#include <random>

#include "TCIMReference.h"
#include "TInmemNamespace.h"
#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// A namespace of the host's own: whatever the path says, it leads where the host wants.
struct TWilfulNamespace : TInmemNamespace {
  TWilfulNamespace() : TInmemNamespace(false) {}
  using TInmemNamespace::operator=;
  boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference&, TCIMContext) override {
    if (meanwhile) meanwhile();
    return answer;
  }
  TInstance answer;
  std::function<void()> meanwhile;
};

bool RefersTo(ICIMInstance& association, const TInstance& target) {
  bool refers = false;
  association.EnumerateProperties(
      [&](const boost::shared_ptr<ICIMProperty>& property) {
        const TCIMValue& value = property->GetValue({});
        if (!value.IsReference()) return true;
        try {
          refers |= static_cast<TCIMReference>(value).GetCIMElement(false) == target;
        } catch (const TVYRException&) {
        }
        return true;
      },
      {});
  return refers;
}

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
      if (RefersTo(*association, target)) found.push_back(PathOf(*association));
      return true;
    };
    link->EnumerateInstances(look, false, {});
    return found;
  }

  TInstance PutLink(const char* id, const TCIMValue& system, const TCIMValue& part) {
    return PutInstance(link, {{"Id", id}, {"System", system}, {"Part", part}});
  }

  void DefineLink() {
    link = NewClass("CIM_Link");
    Qualify(*link, "Association");
    DeclareProperty(link, "Id", TCIMValue::Null(TCIMValue::TCIMType::kString), {"Key"});
    DeclareProperty(link, "System", TCIMValue::NullReference(element));
    DeclareProperty(link, "Part", TCIMValue::NullReference(element));
    link->AddToNamespace({});
  }

  void SetUp() override {
    element = DefineClass("CIM_Element");
    DefineLink();
  }

  TClass element, link;
};

TEST_F(TReferenceIndexTest, FindsWhatTheHostResolvesInItsOwnWay) {
  const auto a = PutInstance(element, "a");
  const auto b = PutInstance(element, "b");
  const auto host = boost::make_shared<TWilfulNamespace>();
  TCIMReference path(host, {});
  path.SetClass(element);
  path.AddKeyValue("Id", "a");
  host->answer = b;
  PutLink("1", TCIMValue(path), RefTo(b));
  PutLink("2", TCIMValue(path), RefTo(a));
  const TNames both{"CIM_Link.id=\"1\"", "CIM_Link.id=\"2\""};
  EXPECT_EQ(ReferencesOf(b), both);
  EXPECT_EQ(ReferencesOf(a), TNames{both[1]});
  host->answer = PutInstance(element, "c");
  EXPECT_EQ(ReferencesOf(host->answer), both);
  EXPECT_EQ(ReferencesOf(b), TNames{both[0]});
  host->answer = {};
  EXPECT_EQ(ReferencesOf(b), TNames{both[0]});
  host->answer = a;  // where the path leads by its text
  EXPECT_EQ(ReferencesOf(a), both);
  host->answer = PutInstance(element, "d");
  PutLink("0", TCIMValue(path), RefTo(b));
  path.SetClass(NewClass("no name", element));
  EXPECT_EQ(Try([&] { PutLink("3", TCIMValue(path, element), RefTo(b)); }), TOutcome());
  EXPECT_EQ(PathsOf(link).size(), 4U);
  host->meanwhile = [&] { space->ClearInstances(); };
  ReferencesOf(host->answer);  // everything goes while the first candidate is resolved
  EXPECT_EQ(PathsOf(link), TNames{});
}

/// Ends and links come, change, go and come again, under several paths and in replaced classes;
/// after every step all walks find what looking at everything finds.
TEST_F(TReferenceIndexTest, FindsWhatLookingAtEverythingFinds) {
  constexpr unsigned kSeeds = 40;
  constexpr int kSteps = 120;
  const char* const ids[] = {"a", "b", "c", "d", "e"};
  std::size_t found = 0;
  for (unsigned seed = 0; seed < kSeeds; ++seed) {
    std::mt19937 random(seed);
    space = NewNamespace(true);
    SetUp();
    std::vector<TInstance> ends;
    std::vector<TInstance> links;
    for (const char* id : ids) ends.push_back(PutInstance(element, id));
    const auto anyEnd = [&] { return ends[random() % ends.size()]; };
    for (int step = 0; step < kSteps; ++step) {
      const auto end = anyEnd();
      switch (random() % 12) {
        case 0:
          end->Delete({});
          break;
        case 1:
          end->AddToNamespace({});
          break;
        case 2:
          end->SetPropertyValue("Id", ids[random() % 5], {});
          break;
        case 3:
          if (random() % 8 == 0) space->ClearInstances();
          break;
        case 4:
          if (random() % 4 == 0) element = DefineClass("CIM_Element");
          break;
        case 5:
          if (random() % 4 == 0) DefineLink();
          break;
        case 6:
          ends[random() % ends.size()] = PutInstance(element, ids[random() % 5]);
          break;
        case 7:
          if (!links.empty()) links[random() % links.size()]->Delete({});
          break;
        case 8:
          if (!links.empty()) {
            links[random() % links.size()]->SetPropertyValue(random() % 2 == 0 ? "System" : "Part",
                                                             RefTo(anyEnd()), {});
          }
          break;
        case 9:
          link->GetPropertyDecl("Part", {})
              ->SetDefaultValue(random() % 2 == 0 ? RefTo(end) : TCIMValue::NullReference(element),
                                {});
          break;
        default:
          links.push_back(NewInstance(link, {{"Id", ids[random() % 5]}, {"System", RefTo(end)}}));
          if (random() % 4 != 0) links.back()->SetPropertyValue("Part", RefTo(anyEnd()), {});
          link->AddInstance(links.back());
      }
      for (const TInstance& target : ends) {
        const TNames expected = FindOneByOne(target);
        ASSERT_EQ(ReferencesOf(target), expected) << "seed " << seed << ", step " << step;
        found += expected.size();
      }
    }
  }
  EXPECT_GT(found, kSeeds * kSteps);
}

}  // namespace
}  // namespace NZELVYR20

#include "ListNeighbours.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "ListAssociators.h"
#include "NaturalOrder.h"

namespace NZELVYR20 {
namespace {

using TInstancePtr = boost::shared_ptr<ICIMInstance>;

int OrderOf(EWay way) {
  switch (way) {
    case EWay::kUp:
      return 0;
    case EWay::kDown:
      return 1;
    default:
      return 2;
  }
}

class TGathering {
 public:
  TGathering(TInstancePtr instance, TInstanceNames& names)
      : instance_(std::move(instance)), names_(names) {}

  void AddOwnEnds() {
    EWay way = EWay::kUp;
    for (const TAssociationEnd& end : ListEnds(*instance_)) {
      Add(way, {end, instance_});
      way = EWay::kDown;
    }
  }

  void AddEndsOf(const TInstancePtr& association) {
    const std::vector<TAssociationEnd> ends = ListEnds(*association);
    for (const TAssociationEnd& own : ends) {
      if (own.instance != instance_) continue;
      for (const TAssociationEnd& far : ends) {
        if (&far == &own) continue;
        const auto way = order_.FindWay(association->GetClass({}), own.role, far.role);
        Add(way.value_or(EWay::kLevel), {far, association});
      }
    }
  }

  std::vector<TNeighbourGroup> Finish() {
    std::vector<TNeighbourGroup> groups;
    groups.reserve(groups_.size());
    for (auto& [key, group] : groups_) {
      std::stable_sort(group.members.begin(), group.members.end(),
                       [](const TNeighbour& left, const TNeighbour& right) {
                         return CompareNatural(left.name, right.name) < 0;
                       });
      groups.push_back(std::move(group));
    }
    return groups;
  }

 private:
  struct TFarEnd {
    const TAssociationEnd& end;
    const TInstancePtr& association;
  };

  void Add(EWay way, const TFarEnd& far) {
    const std::string className = far.association->GetClass({})->GetName({});
    TNeighbourGroup& group = groups_[{OrderOf(way), className, far.end.role}];
    group.way = way;
    group.association = className;
    group.role = far.end.role;
    group.members.push_back({far.end.instance, far.association, names_.NameOf(*far.end.instance)});
  }

  TInstancePtr instance_;
  TInstanceNames& names_;
  TEndOrder order_;
  std::map<std::tuple<int, std::string, std::string>, TNeighbourGroup> groups_;
};

}  // namespace

std::vector<TNeighbourGroup> ListNeighbours(const TInstancePtr& instance, TInstanceNames& names) {
  TGathering gathering(instance, names);
  if (instance->GetClass({})->IsAssociation({})) gathering.AddOwnEnds();
  for (const auto& association : ListReferences(instance)) gathering.AddEndsOf(association);
  return gathering.Finish();
}

}  // namespace NZELVYR20

#include "TWeb.h"

#include <iterator>
#include <map>
#include <string>
#include <utility>

#include "ListClasses.h"

namespace NZELVYR20 {
namespace {

using TInstancePtr = boost::shared_ptr<ICIMInstance>;

TInstanceList ListAssociationsOf(ICIMInstance& instance, const std::string& className) {
  return ListElements<TInstancePtr>([&](const TCIMInstanceCallback& callback) {
    instance.EnumerateAssociationInstances(callback, className, "", {});
  });
}

/// The repository asks the classes in no order that two runs would share.
TInstanceList OrderByClass(TInstanceList associations) {
  std::map<std::string, TInstanceList> byClass;
  for (auto& association : associations) {
    byClass[association->GetClass({})->GetName({})].push_back(std::move(association));
  }
  associations.clear();
  for (auto& [name, group] : byClass) {
    std::move(group.begin(), group.end(), std::back_inserter(associations));
  }
  return associations;
}

TInstanceList ListAssociationsOf(ICIMInstance& instance, const TClassList& classes) {
  if (classes.empty()) return OrderByClass(ListAssociationsOf(instance, ""));
  TInstanceList all;
  for (const auto& cimClass : classes) {
    const TInstanceList some = ListAssociationsOf(instance, cimClass->GetName({}));
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

}  // namespace

std::size_t TWeb::GetNumber(const TInstancePtr& instance) {
  const auto [place, isNew] = numbers_.emplace(instance.get(), instances_.size());
  if (isNew) instances_.push_back(instance);
  return place->second;
}

TWeb TWeb::OfAll(ICIMNamespace& nameSpace) {
  TWeb web;
  TInstanceList associations;
  for (const auto& cimClass : ListAllClasses(nameSpace)) {
    const bool isAssociation = cimClass->IsAssociation({});
    for (const auto& instance : ListInstances(*cimClass, false)) {
      if (isAssociation) {
        associations.push_back(instance);
      } else {
        web.GetNumber(instance);
      }
    }
  }
  for (const auto& association : associations) web.AddAll(*association);
  return web;
}

void TWeb::AddAll(ICIMInstance& association) {
  const auto cimClass = association.GetClass({});
  const std::vector<TAssociationEnd> ends = ListEnds(association);
  for (const TAssociationEnd& from : ends) {
    for (const TAssociationEnd& to : ends) {
      const auto way = order_.FindWay(cimClass, from.role, to.role);
      if (way == EWay::kDown || (way == EWay::kLevel && &from < &to)) {
        const std::size_t first = GetNumber(from.instance);
        steps_.push_back({first, GetNumber(to.instance), *way, cimClass});
      }
    }
  }
}

TWeb TWeb::Around(const TInstancePtr& start, const TWalk& walk) {
  TWeb web;
  web.GetNumber(start);
  std::size_t done = 0;
  for (std::size_t depth = 0; depth != walk.depth; ++depth) {
    const std::size_t end = web.instances_.size();
    if (done == end) return web;
    while (done != end) web.Expand(done++, walk);
  }
  web.isCut_.resize(web.instances_.size());
  for (; done != web.instances_.size(); ++done) web.LookBeyond(done, walk);
  return web;
}

/// Calls `use` with each end that the walk leads to from an instance.
template <class TUse>
void TWeb::VisitNext(std::size_t from, const TWalk& walk, const TUse& use) {
  const TInstancePtr instance = instances_[from];
  for (const auto& association : ListAssociationsOf(*instance, walk.associations)) {
    const auto cimClass = association->GetClass({});
    const std::vector<TAssociationEnd> ends = ListEnds(*association);
    for (const TAssociationEnd& own : ends) {
      if (own.instance != instance) continue;
      for (const TAssociationEnd& far : ends) {
        if (&far == &own) continue;
        const auto way = order_.FindWay(cimClass, own.role, far.role);
        if (way && (way != EWay::kDown || walk.isDown) && (way != EWay::kUp || walk.isUp)) {
          use(far.instance, *way, cimClass);
        }
      }
    }
  }
}

/// What may be walked from both ends has been, from those that were met before.
void TWeb::Expand(std::size_t from, const TWalk& walk) {
  VisitNext(from, walk, [&](const TInstancePtr& far, EWay way, const auto& association) {
    const std::size_t to = GetNumber(far);
    const bool isBoth = way == EWay::kLevel || (walk.isDown && walk.isUp);
    if (!isBoth || to >= from) steps_.push_back({from, to, way, association});
  });
}

void TWeb::LookBeyond(std::size_t from, const TWalk& walk) {
  VisitNext(from, walk, [&](const TInstancePtr& far, EWay, const auto&) {
    if (numbers_.count(far.get()) == 0) isCut_[from] = true;
  });
}

}  // namespace NZELVYR20

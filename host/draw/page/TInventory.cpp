#include "TInventory.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ListClasses.h"
#include "NaturalOrder.h"
#include "TLabels.h"
#include "TText.h"

namespace NZELVYR20 {

TInventory::TInventory(ICIMNamespace& nameSpace) : classes_(ListAllClasses(nameSpace)) {
  for (const auto& cimClass : classes_) byName_.emplace(FoldName(cimClass->GetName({})), cimClass);
}

boost::shared_ptr<ICIMClass> TInventory::FindClass(const std::string& name) const {
  const auto found = byName_.find(FoldName(name));
  return found == byName_.end() ? boost::shared_ptr<ICIMClass>() : found->second;
}

TInstanceList TInventory::List(const std::string& className) const {
  const auto cimClass = FindClass(className);
  return cimClass ? ListInstances(*cimClass, true) : TInstanceList();
}

TInstanceList TInventory::Take(const std::string& className) {
  TLabels labels;
  std::vector<std::pair<std::string, boost::shared_ptr<ICIMInstance>>> named;
  for (const auto& instance : List(className)) {
    if (told_.insert(instance.get()).second) {
      named.emplace_back(labels.Read(*instance).name, instance);
    }
  }
  std::stable_sort(named.begin(), named.end(), [](const auto& left, const auto& right) {
    return CompareNatural(left.first, right.first) < 0;
  });
  TInstanceList instances;
  instances.reserve(named.size());
  for (const auto& [name, instance] : named) instances.push_back(instance);
  return instances;
}

std::vector<std::pair<std::size_t, std::string>> TInventory::CountRest() const {
  std::vector<std::pair<std::size_t, std::string>> rest;
  for (const auto& cimClass : classes_) {
    if (cimClass->IsAssociation({})) continue;
    const TInstanceList all = ListInstances(*cimClass, false);
    const auto count = std::count_if(all.begin(), all.end(), [this](const auto& instance) {
      return told_.count(instance.get()) == 0;
    });
    if (count > 0) rest.emplace_back(count, cimClass->GetName({}));
  }
  std::stable_sort(rest.begin(), rest.end(),
                   [](const auto& left, const auto& right) { return left.first > right.first; });
  return rest;
}

std::string TInventory::CountAll() const {
  std::size_t instances = 0;
  std::size_t associations = 0;
  std::size_t classes = 0;
  for (const auto& cimClass : classes_) {
    const std::size_t count = ListInstances(*cimClass, false).size();
    instances += count;
    classes += count > 0 ? 1 : 0;
    associations += cimClass->IsAssociation({}) ? count : 0;
  }
  if (instances == 0) return "";
  return TText::Count(instances, "instance") + " of " + std::to_string(classes) +
         (classes == 1 ? " class" : " classes") + ", " + std::to_string(associations) +
         " of them associations";
}

}  // namespace NZELVYR20

#include "TInstanceQuery.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "NaturalOrder.h"
#include "SelectInstances.h"
#include "TElementFinder.h"
#include "TPropertyChoice.h"

namespace NZELVYR20 {
namespace {

using TSortable = std::pair<TCIMValue, boost::shared_ptr<ICIMInstance>>;

bool IsText(const TCIMValue& value) {
  return value.GetType() == TCIMValue::TCIMType::kString || value.IsReference();
}

bool IsLess(const TCIMValue& left, const TCIMValue& right) {
  if (!IsText(left) || !IsText(right)) return left < right;
  return CompareNatural(left.ToString(10), right.ToString(10)) < 0;
}

std::vector<TSortable> ReadValues(const TInstanceList& instances, const TPropertyChoice& choice) {
  std::vector<TSortable> sortable;
  sortable.reserve(instances.size());
  for (const auto& instance : instances) {
    const auto property = choice.Read(*instance).front();
    sortable.emplace_back(property ? property->GetValue({}) : TCIMValue(), instance);
  }
  return sortable;
}

void Sort(TInstanceList& instances, const TPropertyChoice& choice, bool isDescending) {
  std::vector<TSortable> sortable = ReadValues(instances, choice);
  const auto nulls =
      std::stable_partition(sortable.begin(), sortable.end(),
                            [](const TSortable& element) { return !element.first.IsNull(); });
  std::stable_sort(
      sortable.begin(), nulls, [isDescending](const TSortable& left, const TSortable& right) {
        return isDescending ? IsLess(right.first, left.first) : IsLess(left.first, right.first);
      });
  std::transform(sortable.begin(), sortable.end(), instances.begin(),
                 [](const TSortable& element) { return element.second; });
}

}  // namespace

TInstanceList TInstanceQuery::List(const boost::shared_ptr<ICIMNamespace>& nameSpace) const {
  const auto cimClass = TElementFinder(nameSpace).FindClass(className);
  TInstanceList instances = where ? SelectInstances(nameSpace, className, isDeep, *where)
                                  : ListInstances(*cimClass, isDeep);
  if (!sort.empty()) {
    const bool hasSign = sort.front() == '-';
    Sort(instances, TPropertyChoice::Name(*cimClass, isDeep, {sort.substr(hasSign ? 1 : 0)}),
         isDescending != hasSign);
  }
  if (limit && *limit < instances.size()) instances.resize(*limit);
  return instances;
}

}  // namespace NZELVYR20

#include "TEndOrder.h"

#include <string>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ListElements.h"

namespace NZELVYR20 {
namespace {

bool IsAggregate(const ICIMPropertyDecl& reference) {
  bool isFound = false;
  const auto qualifier = reference.GetQualifier("Aggregate", isFound, {});
  return qualifier && qualifier->GetValue({}).ToString(10) == "TRUE";
}

int Height(const ICIMPropertyDecl& reference) {
  const std::string name = FoldName(reference.GetName({}));
  if (name == "groupcomponent" || name == "antecedent" || IsAggregate(reference)) return 1;
  return name == "partcomponent" || name == "dependent" ? -1 : 0;
}

bool IsOfMemory(boost::shared_ptr<ICIMClass> association) {
  for (; association; association = association->GetSuperClass({})) {
    if (CompareFolded(association->GetName({}), "CIM_AssociatedMemory") == 0) return true;
  }
  return false;
}

}  // namespace

TEndOrder::THeights TEndOrder::Measure(const boost::shared_ptr<ICIMClass>& association) {
  THeights heights{association, {}, true};
  const int sign = IsOfMemory(association) ? -1 : 1;
  for (const auto& declaration : ListPropertyDecls(*association)) {
    if (declaration->GetType({}) != TCIMValue::TCIMType::kReference) continue;
    const int height = sign * Height(*declaration);
    heights.byReference.emplace(declaration->GetName({}), height);
    if (height != heights.byReference.begin()->second) heights.areAlike = false;
  }
  return heights;
}

std::optional<EWay> TEndOrder::FindWay(const boost::shared_ptr<ICIMClass>& association,
                                       const std::string& from, const std::string& to) {
  auto found = known_.find(association.get());
  if (found == known_.end()) found = known_.emplace(association.get(), Measure(association)).first;
  THeights& heights = found->second;
  const int step = heights.byReference[to] - heights.byReference[from];
  if (step != 0) return step < 0 ? EWay::kDown : EWay::kUp;
  return heights.areAlike ? std::make_optional(EWay::kLevel) : std::nullopt;
}

}  // namespace NZELVYR20

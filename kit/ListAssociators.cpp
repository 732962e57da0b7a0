#include "ListAssociators.h"

#include <ICIMClass.h>
#include <ICIMPropertyDecl.h>
#include <TCIMReference.h>

#include <algorithm>

#include "FindOrNothing.h"
#include "FoldName.h"
#include "NamedRefusal.h"

namespace NZELVYR20 {
namespace {

using TInstancePtr = boost::shared_ptr<ICIMInstance>;

bool HasRole(const TAssociationEnd& end, const std::string& role) {
  return role.empty() || FoldName(end.role) == FoldName(role);
}

TInstanceList ListAssociations(ICIMInstance& source, const std::string& className) {
  return ListElements<TInstancePtr>([&](const TCIMInstanceCallback& callback) {
    source.EnumerateAssociationInstances(callback, className, "", {});
  });
}

/// The ends of one association that are seen from `source` at the role: all but the one at which it
/// stands itself, once for each of these.
void AddFarEnds(ICIMInstance& association, const TInstancePtr& source,
                const TAssociationFilter& filter, TInstanceList& found) {
  const std::vector<TAssociationEnd> ends = ListEnds(association);
  for (const TAssociationEnd& own : ends) {
    if (own.instance != source || !HasRole(own, filter.role)) continue;
    for (const TAssociationEnd& far : ends) {
      if (&far != &own && HasRole(far, filter.resultRole)) found.push_back(far.instance);
    }
  }
}

}  // namespace

std::vector<TAssociationEnd> ListEnds(ICIMInstance& association) {
  std::vector<TAssociationEnd> ends;
  for (const auto& property : ListProperties(association)) {
    const TCIMValue value = property->GetValue({});
    if (!value.IsReference() || value.IsNull()) continue;
    const auto element = boost::dynamic_pointer_cast<ICIMInstance>(
        FindOrNothing([&] { return static_cast<TCIMReference>(value).GetCIMElement(false); }));
    if (element) ends.push_back({property->GetDeclaration({})->GetName({}), element});
  }
  return ends;
}

TInstanceList ListAssociators(const TInstancePtr& source, const TAssociationFilter& filter) {
  TInstanceList found;
  for (const auto& association :
       ListAssociations(*Given(source, "associators", "instance"), filter.assocClass)) {
    AddFarEnds(*association, source, filter, found);
  }
  const auto nameSpace = source->GetClass({})->GetNamespace({});
  if (filter.resultClass.empty() || !nameSpace) return found;
  const auto wanted = nameSpace->GetClass(filter.resultClass, {});
  const auto isOther = [&](const TInstancePtr& one) {
    return !one->GetClass({})->IsSubclassOf(wanted, {});
  };
  found.erase(std::remove_if(found.begin(), found.end(), isOther), found.end());
  return found;
}

TInstanceList ListReferences(const TInstancePtr& source, const std::string& assocClass,
                             const std::string& role) {
  TInstanceList found;
  for (const auto& association :
       ListAssociations(*Given(source, "references", "instance"), assocClass)) {
    const std::vector<TAssociationEnd> ends = ListEnds(*association);
    const bool standsThere = std::any_of(ends.begin(), ends.end(), [&](const auto& end) {
      return end.instance == source && HasRole(end, role);
    });
    if (standsThere) found.push_back(association);
  }
  return found;
}

}  // namespace NZELVYR20

#include "AssociationSearch.h"

#include <boost/shared_ptr.hpp>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListAssociators.h"
#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

using TClassPtr = boost::shared_ptr<ICIMClass>;

/// A reference that an association declares.
struct TDeclaredEnd {
  std::string role;
  TClassPtr cimClass;  ///< to whose instances it leads
};

template <class TElement>
std::vector<TElement> Unique(std::vector<TElement> elements) {
  std::set<TElement> seen;
  std::vector<TElement> unique;
  for (TElement& element : elements) {
    if (seen.insert(element).second) unique.push_back(std::move(element));
  }
  return unique;
}

/// Of a parameter a class that is unknown is no invalid class.
template <class TRead>
auto ReadParameter(const TRead& read) {
  try {
    return read();
  } catch (const TCimFailure& failure) {
    if (failure.GetStatus() != ECimStatus::kInvalidClass) throw;
    throw TCimFailure(ECimStatus::kInvalidParameter, failure.what());
  }
}

TObjectName ReadOrigin(const TCall& call, const char* name) {
  return ReadParameter([&] { return call.paths.ReadObject(call.arguments.Get(name)); });
}

/// Empty where the parameter was left out.
TClassPtr ReadFilter(const TCall& call, const char* name) {
  const pugi::xml_node given = call.arguments.Get(name);
  if (!given) return {};
  return ReadParameter([&] { return call.paths.ReadClass(given); });
}

std::string NameOrNothing(const TClassPtr& cimClass) {
  return cimClass ? cimClass->GetName({}) : std::string();
}

bool Passes(const TClassPtr& cimClass, const TClassPtr& filter) {
  return !filter || cimClass->IsSubclassOf(filter, {});
}

bool IsRole(const TDeclaredEnd& end, const std::string& role) {
  return role.empty() || CompareFolded(end.role, role) == 0;
}

std::vector<TDeclaredEnd> ListDeclaredEnds(const ICIMClass& association) {
  std::vector<TDeclaredEnd> ends;
  for (const auto& property : ListPropertyDecls(association)) {
    const TClassPtr target = property->GetDefaultValue({}).GetReferencedClass();
    if (target) ends.push_back({property->GetName({}), target});
  }
  return ends;
}

/// With each association class that passes, its ends and those of these at which the class stands.
template <class TTake>
void ForEachEnd(const TClassPtr& origin, const TClassPtr& filter, const std::string& role,
                const TTake& take) {
  const TClassList associations = ListElements<TClassPtr>([&](const TCIMClassCallback& callback) {
    origin->EnumerateAssociationClasses(callback, "", "", {});
  });
  for (const TClassPtr& association : associations) {
    if (!Passes(association, filter)) continue;
    const std::vector<TDeclaredEnd> ends = ListDeclaredEnds(*association);
    for (const TDeclaredEnd& own : ends) {
      if (IsRole(own, role) && Passes(origin, own.cimClass)) take(association, ends, own);
    }
  }
}

}  // namespace

TFoundObjects FindAssociators(const TCall& call, const char* origin) {
  const TObjectName source = ReadOrigin(call, origin);
  const TClassPtr assocClass = ReadFilter(call, "AssocClass");
  const TClassPtr resultClass = ReadFilter(call, "ResultClass");
  const std::string role = call.arguments.Text("Role").value_or("");
  const std::string resultRole = call.arguments.Text("ResultRole").value_or("");
  if (source.instance) {
    const auto instance = call.place.nameSpace->GetInstance(*source.instance, {});
    if (!instance) return {};
    return {Unique(ListAssociators(instance, {NameOrNothing(assocClass), NameOrNothing(resultClass),
                                              role, resultRole})),
            {}};
  }
  TClassList found;
  ForEachEnd(source.cimClass, assocClass, role,
             [&](const TClassPtr&, const std::vector<TDeclaredEnd>& ends, const TDeclaredEnd& own) {
               for (const TDeclaredEnd& far : ends) {
                 const bool isFar = &far != &own && IsRole(far, resultRole);
                 if (isFar && Passes(far.cimClass, resultClass)) found.push_back(far.cimClass);
               }
             });
  return {{}, Unique(std::move(found))};
}

TFoundObjects FindReferences(const TCall& call, const char* origin) {
  const TObjectName source = ReadOrigin(call, origin);
  const TClassPtr resultClass = ReadFilter(call, "ResultClass");
  const std::string role = call.arguments.Text("Role").value_or("");
  if (source.instance) {
    const auto instance = call.place.nameSpace->GetInstance(*source.instance, {});
    if (!instance) return {};
    return {Unique(ListReferences(instance, NameOrNothing(resultClass), role)), {}};
  }
  TClassList found;
  ForEachEnd(source.cimClass, resultClass, role,
             [&](const TClassPtr& association, const std::vector<TDeclaredEnd>&,
                 const TDeclaredEnd&) { found.push_back(association); });
  return {{}, Unique(std::move(found))};
}

}  // namespace NZELVYR20

#include "TAssociationCommands.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "DeclarationText.h"
#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TClassTree.h"
#include "TCommandError.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TSuggestion.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using TInstancePtr = boost::shared_ptr<ICIMInstance>;
using TInstanceList = std::vector<TInstancePtr>;

/// A reference of an association instance, and where it leads.
struct TEnd {
  std::string role;
  TInstancePtr instance;
};

/// Without those that lead nowhere.
std::vector<TEnd> ListEnds(ICIMInstance& association) {
  std::vector<TEnd> ends;
  for (const auto& property : TInstanceReader::ListProperties(association)) {
    const TCIMValue value = property->GetValue({});
    if (!value.IsReference() || value.IsNull()) continue;
    try {
      const auto element = static_cast<TCIMReference>(value).GetCIMElement(false);
      ends.push_back(
          {TInstanceReader::NameOf(*property), boost::dynamic_pointer_cast<ICIMInstance>(element)});
    } catch (const TVYRException& error) {
      if (error.GetStatusCode() != TVYRStatusCode::kNotFound) throw;
    }
  }
  return ends;
}

bool IsSameName(const std::string& left, const std::string& right) {
  return CompareFolded(left, right) == 0;
}

bool HasRole(const TEnd& end, const std::string& role) {
  return role.empty() || IsSameName(end.role, role);
}

TInstanceList ListAssociations(ICIMInstance& source, const std::string& className) {
  return ListElements<ICIMInstance>([&](const TCIMInstanceCallback& callback) {
    source.EnumerateAssociationInstances(callback, className, "", {});
  });
}

/// The ends of one association instance that are seen from `source` at the role: all but the one at
/// which it stands itself, once for each of these.
TInstanceList ListFarEnds(ICIMInstance& association, const TInstancePtr& source,
                          const TTraversal& traversal) {
  const std::vector<TEnd> ends = ListEnds(association);
  TInstanceList found;
  for (const TEnd& own : ends) {
    if (own.instance != source || !HasRole(own, traversal.role)) continue;
    for (const TEnd& far : ends) {
      if (&far != &own && HasRole(far, traversal.resultRole)) found.push_back(far.instance);
    }
  }
  return found;
}

bool StandsAt(const TInstancePtr& source, ICIMInstance& association, const std::string& role) {
  const std::vector<TEnd> ends = ListEnds(association);
  return std::any_of(ends.begin(), ends.end(),
                     [&](const TEnd& end) { return end.instance == source && HasRole(end, role); });
}

/// The names of references, and in `other` the first property that has the role's name and is none.
void AddReferenceNames(ICIMClass& association, const std::string& role,
                       std::set<std::string>& names, std::string& other) {
  for (const auto& declaration :
       ListElements<ICIMPropertyDecl>([&association](const TCIMPropertyDeclCallback& callback) {
         association.EnumeratePropertyDecls(callback, {});
       })) {
    const std::string name = declaration->GetName({});
    if (declaration->GetType({}) == TCIMValue::TCIMType::kReference) {
      names.insert(name);
    } else if (other.empty() && IsSameName(name, role)) {
      other = DeclarationText(association.GetName({}), name, TypeText(declaration->GetType({})));
    }
  }
}

std::string UniquePaths(const TInstanceList& instances) {
  std::set<std::string> seen;
  std::string text;
  for (const auto& instance : instances) {
    if (seen.insert(instance->GetReference({}).GetPath()).second) {
      text += TPrinter::PathText(*instance) + "\n";
    }
  }
  return text;
}

}  // namespace

TAssociationCommands::TAssociationCommands(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(nameSpace), finder_(std::move(nameSpace)) {}

std::string TAssociationCommands::ResolveAssociation(const std::string& className) const {
  return className.empty() ? className : finder_.FindAssociation(className)->GetName({});
}

void TAssociationCommands::CheckRole(const std::string& role, const std::string& className) const {
  if (role.empty()) return;
  std::set<std::string> known;
  std::string other;
  for (const auto& cimClass :
       TClassTree::Flatten(className.empty() ? TClassTree::GetTopClasses(*namespace_)
                                             : TClassList{finder_.FindClass(className)})) {
    if (cimClass->IsAssociation({})) AddReferenceNames(*cimClass, role, known, other);
  }
  if (std::any_of(known.begin(), known.end(),
                  [&role](const std::string& name) { return IsSameName(name, role); })) {
    return;
  }
  throw TCommandError((className.empty() ? "no association has a reference "
                                         : "association " + className + " has no reference ") +
                      role +
                      (other.empty() ? TSuggestion::For(role, {known.begin(), known.end()})
                                     : "; " + other + " is none"));
}

std::string TAssociationCommands::Associators(const TTraversal& traversal) const {
  const std::string assocClass = ResolveAssociation(traversal.assocClass);
  CheckRole(traversal.role, assocClass);
  CheckRole(traversal.resultRole, assocClass);
  const auto resultClass = traversal.resultClass.empty() ? boost::shared_ptr<ICIMClass>()
                                                         : finder_.FindClass(traversal.resultClass);
  const auto source = finder_.FindInstance(traversal.path);

  TInstanceList results;
  for (const auto& association : ListAssociations(*source, assocClass)) {
    for (const auto& instance : ListFarEnds(*association, source, traversal)) {
      if (!resultClass || instance->GetClass({})->IsSubclassOf(resultClass, {})) {
        results.push_back(instance);
      }
    }
  }
  return UniquePaths(results);
}

std::string TAssociationCommands::References(const TTraversal& traversal) const {
  const std::string resultClass = ResolveAssociation(traversal.resultClass);
  CheckRole(traversal.role, resultClass);
  const auto source = finder_.FindInstance(traversal.path);

  TInstanceList results;
  for (const auto& association : ListAssociations(*source, resultClass)) {
    if (StandsAt(source, *association, traversal.role)) results.push_back(association);
  }
  return UniquePaths(results);
}

}  // namespace NZELVYR20

#include "TAssociationCommands.h"

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "DeclarationText.h"
#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListAssociators.h"
#include "ListClasses.h"
#include "TCommandError.h"
#include "TInstanceReader.h"
#include "TSuggestion.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

bool IsSameName(const std::string& left, const std::string& right) {
  return CompareFolded(left, right) == 0;
}

/// The names of references, and in `other` the first property that has the role's name and is none.
void AddReferenceNames(ICIMClass& association, const std::string& role,
                       std::set<std::string>& names, std::string& other) {
  for (const auto& declaration : ListPropertyDecls(association)) {
    const std::string name = declaration->GetName({});
    if (declaration->GetType({}) == TCIMValue::TCIMType::kReference) {
      names.insert(name);
    } else if (other.empty() && IsSameName(name, role)) {
      other = DeclarationText(association.GetName({}), name, TypeText(declaration->GetType({})));
    }
  }
}

TInstanceList Unique(const TInstanceList& instances) {
  std::set<std::string> seen;
  TInstanceList unique;
  for (const auto& instance : instances) {
    if (seen.insert(instance->GetReference({}).GetPath()).second) unique.push_back(instance);
  }
  return unique;
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
       WithDescendants(className.empty() ? ListTopClasses(*namespace_)
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

TInstanceList TAssociationCommands::Associators(const TTraversal& traversal) const {
  const std::string assocClass = ResolveAssociation(traversal.assocClass);
  CheckRole(traversal.role, assocClass);
  CheckRole(traversal.resultRole, assocClass);
  const auto resultClass = traversal.resultClass.empty() ? boost::shared_ptr<ICIMClass>()
                                                         : finder_.FindClass(traversal.resultClass);
  const auto source = finder_.FindInstance(traversal.path);

  return Unique(
      ListAssociators(source, {assocClass, resultClass ? resultClass->GetName({}) : std::string(),
                               traversal.role, traversal.resultRole}));
}

TInstanceList TAssociationCommands::References(const TTraversal& traversal) const {
  const std::string resultClass = ResolveAssociation(traversal.resultClass);
  CheckRole(traversal.role, resultClass);
  const auto source = finder_.FindInstance(traversal.path);

  return Unique(ListReferences(source, resultClass, traversal.role));
}

}  // namespace NZELVYR20

#include "TAssociationCommands.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "ListElements.h"
#include "TClassTree.h"
#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

using TInstanceList = std::vector<boost::shared_ptr<ICIMInstance>>;

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

std::vector<std::string> TopClassNames(ICIMNamespace& nameSpace) {
  std::vector<std::string> names;
  for (const auto& cimClass : TClassTree::GetTopClasses(nameSpace)) {
    names.push_back(cimClass->GetName({}));
  }
  return names;
}

}  // namespace

TAssociationCommands::TAssociationCommands(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(nameSpace), finder_(std::move(nameSpace)) {}

/// The repository takes an unknown result class for an empty answer; the user is told instead.
std::string TAssociationCommands::ResolveClass(const std::string& className) const {
  return className.empty() ? className : finder_.FindClass(className)->GetName({});
}

void TAssociationCommands::CheckRole(const std::string& role) const {
  if (!role.empty()) {
    finder_.CheckPropertyName(role);
  }
}

std::string TAssociationCommands::Associators(const TTraversal& traversal) const {
  const std::string assocClass = ResolveClass(traversal.assocClass);
  const std::string resultClass = ResolveClass(traversal.resultClass);
  CheckRole(traversal.role);
  CheckRole(traversal.resultRole);
  const auto source = finder_.FindInstance(traversal.path);
  const std::vector<std::string> resultClasses =
      resultClass.empty() ? TopClassNames(*namespace_) : std::vector<std::string>{resultClass};

  return UniquePaths(ListElements<ICIMInstance>([&](const TCIMInstanceCallback& callback) {
    for (const auto& name : resultClasses) {
      source->EnumerateAssociatedInstances(callback, assocClass, name, traversal.role,
                                           traversal.resultRole, {});
    }
  }));
}

std::string TAssociationCommands::References(const TTraversal& traversal) const {
  const std::string resultClass = ResolveClass(traversal.resultClass);
  CheckRole(traversal.role);
  const auto source = finder_.FindInstance(traversal.path);

  return UniquePaths(ListElements<ICIMInstance>([&](const TCIMInstanceCallback& callback) {
    source->EnumerateAssociationInstances(callback, resultClass, traversal.role, {});
  }));
}

}  // namespace NZELVYR20

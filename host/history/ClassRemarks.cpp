#include "ClassRemarks.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using TDeclaration = boost::shared_ptr<ICIMPropertyDecl>;
using TDeclarations = std::map<std::string, TDeclaration>;

TDeclarations IndexDeclarations(const ICIMClass& cimClass) {
  TDeclarations declarations;
  for (const auto& declaration : ListPropertyDecls(cimClass)) {
    declarations.emplace(FoldName(declaration->GetName({})), declaration);
  }
  return declarations;
}

std::set<std::string> FoldedKeys(ICIMClass& cimClass) {
  std::set<std::string> keys;
  for (const std::string& name : ListKeyNames(cimClass)) keys.insert(FoldName(name));
  return keys;
}

std::string Subject(const ICIMPropertyDecl& declaration) {
  return "property " + declaration.GetClass({})->GetName({}) + '.' + declaration.GetName({});
}

/// Those of `some` that `others` lack.
void AddMissing(std::set<std::string>& remarks, const TDeclarations& some,
                const TDeclarations& others, const std::string& where) {
  for (const auto& [name, declaration] : some) {
    if (others.count(name) == 0) remarks.insert(Subject(*declaration) + " is only in the " + where);
  }
}

void AddPropertyRemarks(std::set<std::string>& remarks, const TClassPair& pair) {
  const TDeclarations before = IndexDeclarations(*pair.before);
  const TDeclarations after = IndexDeclarations(*pair.after);
  AddMissing(remarks, before, after, "old schema");
  AddMissing(remarks, after, before, "new schema");
  for (const auto& [name, declaration] : before) {
    const auto other = after.find(name);
    if (other == after.end() || other->second->GetType({}) == declaration->GetType({})) continue;
    remarks.insert(Subject(*other->second) +
                   " has another type: " + TypeText(declaration->GetType({})) + ", now " +
                   TypeText(other->second->GetType({})));
  }
}

}  // namespace

bool AddRemarks(std::set<std::string>& remarks, const TClassPair& pair, std::size_t instances) {
  const std::string subject = "class " + (pair.after ? pair.after : pair.before)->GetName({});
  const std::string leftOut = ", which leaves out " + TText::Count(instances, "instance");
  if (!pair.before || !pair.after) {
    const std::string side = pair.before ? "old" : "new";
    remarks.insert(subject + " is only in the " + side + " schema" + leftOut);
    return false;
  }
  if (FoldedKeys(*pair.before) != FoldedKeys(*pair.after)) {
    remarks.insert(subject + " has other keys than before" + leftOut);
    return false;
  }
  AddPropertyRemarks(remarks, pair);
  return true;
}

}  // namespace NZELVYR20

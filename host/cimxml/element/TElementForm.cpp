#include "TElementForm.h"

#include <utility>

#include "ICIMPropertyDecl.h"
#include "ListElements.h"

namespace NZELVYR20 {

void TElementForm::RestrictTo(const ICIMClass& cimClass) {
  std::set<std::string> names;
  for (const auto& declaration : ListPropertyDecls(cimClass)) {
    const std::string& name = declaration->GetName({});
    if (IsListed(name)) names.insert(FoldName(name));
  }
  properties = std::move(names);
}

}  // namespace NZELVYR20

#include "ListClasses.h"

namespace NZELVYR20 {

TClassList WithDescendants(const TClassList& classes) {
  TClassList all;
  for (const auto& cimClass : classes) {
    const TClassList below = ListSubClasses(*cimClass, true);
    all.push_back(cimClass);
    all.insert(all.end(), below.begin(), below.end());
  }
  return all;
}

TClassList ListAllClasses(ICIMNamespace& nameSpace) {
  return WithDescendants(ListTopClasses(nameSpace));
}

std::vector<std::string> ListClassNames(ICIMNamespace& nameSpace) {
  std::vector<std::string> names;
  for (const auto& cimClass : ListAllClasses(nameSpace)) names.push_back(cimClass->GetName({}));
  return names;
}

}  // namespace NZELVYR20

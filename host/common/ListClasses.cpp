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

}  // namespace NZELVYR20

#include "TClassTree.h"

#include "ListElements.h"

namespace NZELVYR20 {
namespace {

TClassList ListSubClasses(ICIMClass& cimClass, bool deep) {
  return ListElements<ICIMClass>([&cimClass, deep](const TCIMClassCallback& callback) {
    cimClass.EnumerateSubClasses(callback, deep, {});
  });
}

}  // namespace

TClassList TClassTree::GetTopClasses(ICIMNamespace& nameSpace) {
  return ListElements<ICIMClass>([&nameSpace](const TCIMClassCallback& callback) {
    nameSpace.EnumerateRootClasses(callback, {});
  });
}

TClassList TClassTree::GetSubClasses(ICIMClass& cimClass) {
  return ListSubClasses(cimClass, false);
}

TClassList TClassTree::Flatten(const TClassList& classes) {
  TClassList all;
  for (const auto& cimClass : classes) {
    const TClassList below = ListSubClasses(*cimClass, true);
    all.push_back(cimClass);
    all.insert(all.end(), below.begin(), below.end());
  }
  return all;
}

}  // namespace NZELVYR20

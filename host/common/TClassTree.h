#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

#include "ICIMClass.h"
#include "ICIMNamespace.h"

namespace NZELVYR20 {

using TClassList = std::vector<boost::shared_ptr<ICIMClass>>;

/// The hierarchy of a namespace's classes. Siblings come in order of addition.
class TClassTree {
 public:
  TClassTree() = delete;

  /// The classes directly below the root class.
  static TClassList GetTopClasses(ICIMNamespace& nameSpace);

  /// The classes directly below `cimClass`.
  static TClassList GetSubClasses(ICIMClass& cimClass);

  /// The given classes, each followed by its descendants.
  static TClassList Flatten(const TClassList& classes);
};

}  // namespace NZELVYR20

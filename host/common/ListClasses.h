#pragma once

#include <string>
#include <vector>

#include "ListElements.h"

namespace NZELVYR20 {

/// The given classes, each followed by its descendants. Siblings come in order of addition.
TClassList WithDescendants(const TClassList& classes);

/// All classes of a namespace, in that order.
TClassList ListAllClasses(ICIMNamespace& nameSpace);

/// Their names.
std::vector<std::string> ListClassNames(ICIMNamespace& nameSpace);

}  // namespace NZELVYR20

#pragma once

#include <vector>

#include "MofSyntax.h"

namespace NZELVYR20 {

/// What was read and is still to be entered, each kind in the order in which it was read.
struct TMofBatch {
  std::vector<TMofQualifierDeclaration> qualifiers;
  std::vector<TMofClass> classes;
  std::vector<TMofInstance> instances;
};

}  // namespace NZELVYR20

#pragma once

#include "ListElements.h"
#include "TOperation.h"

namespace NZELVYR20 {

/// What a walk along associations leads to: instances from an instance, classes from a class.
struct TFoundObjects {
  TInstanceList instances;
  TClassList classes;
};

/// What is associated with the instance or class at a parameter, by AssocClass, ResultClass, Role
/// and ResultRole. An instance that is not there has none; an unknown class is an invalid
/// parameter.
TFoundObjects FindAssociators(const TCall& call, const char* origin);

/// The associations themselves, by ResultClass and Role.
TFoundObjects FindReferences(const TCall& call, const char* origin);

}  // namespace NZELVYR20

#pragma once

#include <string>

#include "TVYRException.h"

namespace NZELVYR20 {

/// The catalogue of the failures that the repository raises itself: `throw Failure::NotFound();`.
namespace Failure {

TVYRException NotSupported();
TVYRException NoKeys();
TVYRException TypeMismatch();
TVYRException NotFound();
TVYRException AlreadyDefined();
TVYRException CannotLeaveNamespace();
TVYRException NullKey();
TVYRException ReferenceOutsideAssociation();
TVYRException InvalidName();
TVYRException QualifierConflict();

/// Whether somebody merely probed for an element that is not there.
bool IsNotFound(const TVYRException& failure);

/// A new exception of the same status: what a host threw of a derived type does not travel on.
TVYRException SameStatus(const TVYRException& failure);

}  // namespace Failure

/// Writes a message about an element that breaks a rule of validation (level 0).
void LogValidationFailure(const std::string& message);

/// Writes a message about a definition that cannot be entered (level 3).
void LogDefinitionFailure(const std::string& message);

}  // namespace NZELVYR20

#include "Failures.h"

#include "ICoreLogger.h"
#include "TRootObject.h"

namespace NZELVYR20 {

namespace Failure {

TVYRException NotSupported() { return TVYRException(TVYRStatusCode::kNotSupported); }
TVYRException NoKeys() { return TVYRException(TVYRStatusCode::kNoKeys); }
TVYRException TypeMismatch() { return TVYRException(TVYRStatusCode::kTypeMismatch); }
TVYRException NotFound() { return TVYRException(TVYRStatusCode::kNotFound); }
TVYRException AlreadyDefined() { return TVYRException(TVYRStatusCode::kAlreadyDefined); }
TVYRException CannotLeaveNamespace() {
  return TVYRException(TVYRStatusCode::kCannotLeaveNamespace);
}
TVYRException NullKey() { return TVYRException(TVYRStatusCode::kNullKey); }
TVYRException ReferenceOutsideAssociation() {
  return TVYRException(TVYRStatusCode::kReferenceOutsideAssociation);
}
TVYRException InvalidName() { return TVYRException(TVYRStatusCode::kInvalidName); }
TVYRException QualifierConflict() { return TVYRException(TVYRStatusCode::kQualifierConflict); }

bool IsNotFound(const TVYRException& failure) {
  return failure.GetStatusCode() == TVYRStatusCode::kNotFound;
}

TVYRException SameStatus(const TVYRException& failure) {
  return TVYRException(failure.GetStatusCode());
}

}  // namespace Failure

namespace {

constexpr int kValidationLevel = 0;
constexpr int kDefinitionLevel = 3;

}  // namespace

void LogValidationFailure(const std::string& message) {
  TRootObject::GetCoreLogger()->Log(kValidationLevel, message);
}

void LogDefinitionFailure(const std::string& message) {
  TRootObject::GetCoreLogger()->Log(kDefinitionLevel, message);
}

}  // namespace NZELVYR20

#include "TVYRStatusCode.h"

namespace NZELVYR20 {

const char* TVYRStatusCode::TranslateStatusCode() const noexcept {
  switch (code_) {
    case kSuccess:
      return "The operation succeeded.";
    case kNotSupported:
      return "The operation is not supported.";
    case kNoKeys:
      return "The class has no key property.";
    case kTypeMismatch:
      return "The type does not match.";
    case kNotFound:
      return "The element was not found.";
    case kAlreadyDefined:
      return "The name is already defined.";
    case kCannotLeaveNamespace:
      return "The class cannot leave its namespace.";
    case kNullKey:
      return "A key property has no value.";
    case kReferenceOutsideAssociation:
      return "Only an association may declare a reference.";
    case kInvalidName:
      return "The name is not a valid CIM name.";
    case kQualifierConflict:
      return "The qualifier conflicts with one that may not be replaced.";
    default:
      return "The operation failed with an unknown status.";
  }
}

}  // namespace NZELVYR20

#pragma once

#include "VYRExport.h"

namespace NZELVYR20 {

/// A status code: the one thing that a failure carries across the contract.
///
/// A host may define codes of its own; those named here are the ones that the in-memory
/// repository and the reference core raise.
class VYR_EXPORT TVYRStatusCode {
 public:
  /// The codes that have a name here; any other number is a code as well.
  enum ECode : int {
    kSuccess = 0,                ///< never thrown
    kNotSupported = 1,           ///< the repository does not offer the operation
    kNoKeys = 7,                 ///< a concrete class has no key property
    kTypeMismatch = 14,          ///< a value, or an override, of the wrong type
    kNotFound = 15,              ///< no element of that name; the ordinary answer to a probe
    kAlreadyDefined = 16,        ///< the name is taken
    kCannotLeaveNamespace = 17,  ///< the class is not in its namespace, or is still in use there
    kNullKey = 18,               ///< a key property of an instance is null
    kReferenceOutsideAssociation = 22,  ///< a reference property in a class that is no association
    kInvalidName = 25,                  ///< not a CIM name
    kQualifierConflict = 28,            ///< another value is attached and may not be replaced
  };

  /// Any number is taken as it is.
  TVYRStatusCode(int code = kSuccess) noexcept : code_(code) {}

  /// The number.
  operator int() const noexcept { return code_; }

  /// A short sentence for people. Never null, also for codes that nobody defined; the text is
  /// constant and outlives the object.
  const char* TranslateStatusCode() const noexcept;

 private:
  int code_;
};

}  // namespace NZELVYR20

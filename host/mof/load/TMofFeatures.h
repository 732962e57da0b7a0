#pragma once

#include <boost/shared_ptr.hpp>
#include <functional>

#include "ICIMClass.h"
#include "ICIMNamespace.h"
#include "MofSyntax.h"
#include "TMofDiagnostics.h"
#include "TMofQualifiers.h"
#include "TMofReferenceClasses.h"
#include "TMofValues.h"

namespace NZELVYR20 {

/// Declares the properties and methods of a class that is not entered yet.
class TMofFeatures {
 public:
  /// Finds the class to which a reference points; throws TMofFault where there is none.
  using TFindClass = std::function<boost::shared_ptr<ICIMClass>(const TMofName& name)>;

  /// Whether a class of that name is there or was to be.
  using TIsKnown = std::function<bool(const std::string& name)>;

  TMofFeatures(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
               TMofQualifiers& qualifiers, TMofReferenceClasses& referenceClasses,
               TFindClass findClass, TIsKnown isKnown);

  /// A property that the class leaves out without a status is a warning, or a note where it only
  /// stands twice. Throws TMofFault, and passes on the status with which the class refuses it.
  void Declare(ICIMClass& cimClass, const TMofProperty& property);
  void Declare(ICIMClass& cimClass, const TMofMethod& method);

 private:
  TCIMValue MakeDefault(const TMofProperty& property) const;
  TCIMValue MakeReferenceDefault(const TMofProperty& property) const;
  void DeclareParameter(ICIMMethodDecl& method, const TMofParameter& parameter,
                        const ICIMMethodDecl* overridden);
  void NoteIfNothingOverridden(const TMofName& name, const void* overridden);
  void ReportLeftOut(const TMofProperty& property, const ICIMPropertyDecl& declaration,
                     const ICIMPropertyDecl& kept);
  void CheckType(const TMofType& type);
  void CheckResultOrParameter(const ICIMMethodDecl& method, const std::string& parameter,
                              const TMofType& type);

  TMofDiagnostics& diagnostics_;
  TMofQualifiers& qualifiers_;
  TMofReferenceClasses& referenceClasses_;
  TMofValues values_;
  TFindClass findClass_;
  TIsKnown isKnown_;
  bool isSizeNoted_ = false;
};

}  // namespace NZELVYR20

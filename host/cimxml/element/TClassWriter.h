#pragma once

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "TElementForm.h"
#include "TPropertyWriter.h"
#include "TQualifierWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes classes.
class TClassWriter {
 public:
  /// All three outlive the object.
  TClassWriter(TXmlWriter& xml, TPropertyWriter& properties, TQualifierWriter& qualifiers);

  /// CLASS
  void Write(const ICIMClass& cimClass, const TElementForm& form);

 private:
  void WriteMethod(ICIMMethodDecl& method, const ICIMClass& cimClass, const TElementForm& form);
  void WriteParameter(const ICIMParameterDecl& parameter, const TElementForm& form);

  TXmlWriter& xml_;
  TPropertyWriter& properties_;
  TQualifierWriter& qualifiers_;
};

}  // namespace NZELVYR20

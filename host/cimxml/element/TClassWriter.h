#pragma once

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMPropertyDecl.h"
#include "TElementForm.h"
#include "TQualifierWriter.h"
#include "TValueWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes classes.
class TClassWriter {
 public:
  /// All three outlive the object.
  TClassWriter(TXmlWriter& xml, TValueWriter& values, TQualifierWriter& qualifiers);

  /// CLASS
  void Write(const ICIMClass& cimClass, const TElementForm& form);

 private:
  void WriteProperty(const ICIMPropertyDecl& property, const ICIMClass& cimClass,
                     const TElementForm& form);
  void WriteMethod(ICIMMethodDecl& method, const ICIMClass& cimClass, const TElementForm& form);
  void WriteParameter(const ICIMParameterDecl& parameter, const TElementForm& form);

  TXmlWriter& xml_;
  TValueWriter& values_;
  TQualifierWriter& qualifiers_;
};

}  // namespace NZELVYR20

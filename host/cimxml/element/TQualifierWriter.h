#pragma once

#include "ICIMNamedElement.h"
#include "ICIMQualifierDecl.h"
#include "TValueWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes qualifiers and their declarations.
class TQualifierWriter {
 public:
  /// `xml` and `values` outlive the object.
  TQualifierWriter(TXmlWriter& xml, TValueWriter& values);

  /// QUALIFIER for each of the element's; without those that it inherited, where `localOnly`,
  /// except what makes a class an association or an indication.
  void WriteAll(const ICIMNamedElement& element, bool localOnly);

  /// QUALIFIER.DECLARATION
  void WriteDeclaration(const ICIMQualifierDecl& declaration);

 private:
  void Write(const ICIMQualifier& qualifier);

  TXmlWriter& xml_;
  TValueWriter& values_;
};

}  // namespace NZELVYR20

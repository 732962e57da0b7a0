#pragma once

#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMQualifierDecl.h"
#include "TCIMReference.h"
#include "TCIMValue.h"
#include "TClassWriter.h"
#include "TElementForm.h"
#include "TInstanceWriter.h"
#include "TPathWriter.h"
#include "TPropertyWriter.h"
#include "TQualifierWriter.h"
#include "TValueWriter.h"
#include "TXmlWriter.h"

namespace NZELVYR20 {

/// Writes what answers consist of, each operation one element of the protocol.
class TElementWriter {
 public:
  /// `xml` outlives the object; all paths are of that place.
  TElementWriter(TXmlWriter& xml, const TPathPlace& place);

  /// CLASS
  void WriteClass(const ICIMClass& cimClass, const TElementForm& form);
  /// CLASSNAME
  void WriteClassName(const ICIMClass& cimClass);
  /// QUALIFIER.DECLARATION
  void WriteQualifierDecl(const ICIMQualifierDecl& declaration);
  /// VALUE, VALUE.ARRAY or VALUE.REFERENCE; nothing for null
  void WriteValue(const TCIMValue& value);

  /// INSTANCE
  void WriteInstance(ICIMInstance& instance, const TElementForm& form);
  /// INSTANCENAME
  void WriteInstanceName(ICIMInstance& instance);
  /// INSTANCEPATH
  void WriteInstancePath(ICIMInstance& instance);
  /// VALUE.NAMEDINSTANCE
  void WriteNamedInstance(ICIMInstance& instance, const TElementForm& form);
  /// VALUE.INSTANCEWITHPATH
  void WriteInstanceWithPath(ICIMInstance& instance, const TElementForm& form);

  /// OBJECTPATH
  void WriteObjectPath(ICIMInstance& instance);
  void WriteObjectPath(const ICIMClass& cimClass);
  /// VALUE.OBJECTWITHPATH
  void WriteObjectWithPath(ICIMInstance& instance, const TElementForm& form);
  void WriteObjectWithPath(const ICIMClass& cimClass, const TElementForm& form);

 private:
  TXmlWriter& xml_;
  TPathWriter paths_;
  TValueWriter values_;
  TQualifierWriter qualifiers_;
  TPropertyWriter properties_;
  TClassWriter classes_;
  TInstanceWriter instances_;
};

}  // namespace NZELVYR20

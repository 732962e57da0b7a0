#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ICIMQualifierDecl.h"

namespace NZELVYR20 {

/// Writes elements as MOF that reads back to an equal namespace.
class TMofWriter {
 public:
  /// With `isInherited`, a class is written as it is: with the declarations and qualifiers that it
  /// took over from its superclasses. Without, only with what it declared itself.
  static std::string WriteClass(const boost::shared_ptr<ICIMClass>& cimClass, bool isInherited);

  static std::string WriteQualifierDecl(const boost::shared_ptr<ICIMQualifierDecl>& declaration);
  static std::string WriteInstance(const boost::shared_ptr<ICIMInstance>& instance);

  /// Everything: qualifier declarations, then classes behind those that they need, then instances.
  static std::string WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace);
};

}  // namespace NZELVYR20

#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ICIMQualifierDecl.h"
#include "ListElements.h"
#include "TMofReferenceClasses.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Writes elements as MOF that reads back to an equal namespace, laid out for people.
///
/// What MOF has no words for is lost: infinite reals and such as are no number become null; a
/// qualifier's value takes the declared type; a declaration or qualifier that was taken away from a
/// class is there again. A parameter's or a result's reference is one to any object unless
/// `referenceClasses` knows its class.
class TMofWriter {
 public:
  TMofWriter() = delete;

  /// A class with what it declared itself, under its superclass. With `isInherited` it has in
  /// addition, for people to read, the declarations that it took over, each marked with the class
  /// it comes from, and the qualifiers that were passed down to it.
  static std::string WriteClass(const boost::shared_ptr<ICIMClass>& cimClass, bool isInherited,
                                const TMofReferenceClasses& referenceClasses);

  static std::string WriteQualifierDecl(const boost::shared_ptr<ICIMQualifierDecl>& declaration);

  /// An instance with the values of its own; defaults are left to the class. References stand
  /// there as object paths.
  static std::string WriteInstance(const boost::shared_ptr<ICIMInstance>& instance);

  /// The same for several in the order given, piece by piece, with an empty line between each two.
  static void WriteInstances(const TInstanceList& instances, const TWriteText& write);

  /// Everything, piece by piece: qualifier declarations, then classes after those that they need,
  /// then instances after those to which they refer.
  static void WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                             const TMofReferenceClasses& referenceClasses, const TWriteText& write);
  static std::string WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                    const TMofReferenceClasses& referenceClasses);
};

}  // namespace NZELVYR20

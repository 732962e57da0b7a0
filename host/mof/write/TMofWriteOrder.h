#pragma once

#include <boost/shared_ptr.hpp>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ListClasses.h"

namespace NZELVYR20 {

/// In which order the elements of a namespace are written, so that a reader finds what it needs
/// before it needs it. Neither the depth of a hierarchy nor that of references is limited.
class TMofWriteOrder {
 public:
  TMofWriteOrder() = delete;

  /// Every class, after its superclass and after the siblings that were added before it, so that
  /// these keep their order; and after the classes to which its references point, unless a class
  /// needs itself that way.
  static TClassList ListClasses(ICIMNamespace& nameSpace);

  /// The instances of these classes: those without references, class by class, then the others,
  /// each after those to which it refers, unless it refers to itself that way.
  static TInstanceList ListInstances(const TClassList& classes);
};

}  // namespace NZELVYR20

#pragma once

#include <string>

#include "ICIMClass.h"
#include "TMofReferenceClasses.h"

namespace NZELVYR20 {

/// Classes as MOF.
class TMofClassText {
 public:
  TMofClassText() = delete;

  /// Appends the declaration of a class: its properties, then its methods, each group in the order
  /// in which the class enumerates it. The rest is that of TMofWriter::WriteClass().
  static void Append(std::string& text, const ICIMClass& cimClass, bool isInherited,
                     const TMofReferenceClasses& referenceClasses);
};

}  // namespace NZELVYR20

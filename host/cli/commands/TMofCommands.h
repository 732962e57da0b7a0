#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"
#include "TMofReferenceClasses.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// The command that prints MOF. A class that the namespace lacks is a TCommandError.
class TMofCommands {
 public:
  /// `referenceClasses`, which outlives this object, is what was learned when the MOF was loaded.
  TMofCommands(boost::shared_ptr<ICIMNamespace> nameSpace,
               const TMofReferenceClasses& referenceClasses);

  /// A class, with or without what it inherited; an empty name means everything that there is.
  void Write(const std::string& className, bool isInherited, const TWriteText& write) const;

 private:
  boost::shared_ptr<ICIMNamespace> namespace_;
  const TMofReferenceClasses& referenceClasses_;
};

}  // namespace NZELVYR20

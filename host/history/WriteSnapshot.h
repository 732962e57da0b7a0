#pragma once

#include <boost/shared_ptr.hpp>
#include <ctime>

#include "ICIMNamespace.h"
#include "TMofReferenceClasses.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// Everything in the namespace as MOF, below comments with the machine's name and the time.
void WriteSnapshot(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                   const TMofReferenceClasses& referenceClasses, std::time_t time,
                   const TWriteText& write);

}  // namespace NZELVYR20

#include "TMofCommands.h"

#include <utility>

#include "TElementFinder.h"
#include "TMofWriter.h"

namespace NZELVYR20 {

TMofCommands::TMofCommands(boost::shared_ptr<ICIMNamespace> nameSpace,
                           const TMofReferenceClasses& referenceClasses)
    : namespace_(std::move(nameSpace)), referenceClasses_(referenceClasses) {}

void TMofCommands::Write(const std::string& className, bool isInherited,
                         const TWriteText& write) const {
  if (className.empty()) return TMofWriter::WriteNamespace(namespace_, referenceClasses_, write);
  write(TMofWriter::WriteClass(TElementFinder(namespace_).FindClass(className), isInherited,
                               referenceClasses_));
}

}  // namespace NZELVYR20

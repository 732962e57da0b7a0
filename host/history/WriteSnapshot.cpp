#include "WriteSnapshot.h"

#include <string>

#include "MachineName.h"
#include "TMofWriter.h"
#include "TText.h"
#include "UtcTimeText.h"

namespace NZELVYR20 {

void WriteSnapshot(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                   const TMofReferenceClasses& referenceClasses, std::time_t time,
                   const TWriteText& write) {
  const std::string machine = FindMachineName(*nameSpace);
  write((machine.empty() ? "" : "// machine: " + TText::OneLine(machine) + '\n') +
        "// time: " + UtcTimeText(time) + "\n\n");
  TMofWriter::WriteNamespace(nameSpace, referenceClasses, write);
}

}  // namespace NZELVYR20

#include "WritePaths.h"

#include <string>

#include "TPrinter.h"
#include "TShortPaths.h"

namespace NZELVYR20 {

void WritePaths(const TInstanceList& instances, TPathListForm form, const TWriteText& write) {
  if (form.isShort && !form.keepsOrder) {
    for (const std::string& path : TShortPaths::List(instances)) write(path + '\n');
    return;
  }
  TShortPaths paths;
  for (const auto& instance : instances) {
    write((form.isShort ? paths.For(*instance) : TPrinter::PathText(*instance)) + '\n');
  }
}

}  // namespace NZELVYR20

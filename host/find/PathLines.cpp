#include "PathLines.h"

#include <vector>

#include "TPrinter.h"
#include "TShortPaths.h"

namespace NZELVYR20 {

std::string PathLines(const TInstanceList& instances, bool isShort) {
  std::string text;
  if (isShort) {
    for (const std::string& path : TShortPaths::List(instances)) text += path + '\n';
  } else {
    for (const auto& instance : instances) text += TPrinter::PathText(*instance) + '\n';
  }
  return text;
}

}  // namespace NZELVYR20

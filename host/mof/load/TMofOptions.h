#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "TMofReferenceClasses.h"

namespace NZELVYR20 {

/// How MOF is read. The limits guard against files that are no MOF; what people write stays far
/// below them.
struct TMofOptions {
  /// Folders in which files are searched that are not found beside the file that includes them:
  /// included ones, and CLASS.mof for a class that nothing declares.
  std::vector<std::string> searchPath;
  bool isStrict = false;         ///< warnings are errors, and the first error ends the load
  bool isQuiet = false;          ///< neither warnings nor notes are said; they are counted
  std::size_t reportLimit = 20;  ///< of messages of each severity
  std::size_t largestFile = std::size_t{64} * 1024 * 1024;  ///< in bytes
  std::size_t deepestInclude = 64;                          ///< files on the way to the innermost
  /// What TMofWriter asks for; copies share it, so that several loads fill one.
  std::shared_ptr<TMofReferenceClasses> referenceClasses = std::make_shared<TMofReferenceClasses>();
};

}  // namespace NZELVYR20

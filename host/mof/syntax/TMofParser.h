#pragma once

#include <vector>

#include "MofSyntax.h"
#include "TMofDiagnostics.h"

namespace NZELVYR20 {

/// Reads the text of one source into declarations, in their order.
///
/// A declaration that cannot be read is reported as an error, once, and left out; reading goes on
/// with the next one. An escape that MOF does not know is a warning and stands for itself; a
/// back-slash in what is plainly a "class\subclass" text likewise gives a note. Nesting and size
/// of the text cannot exhaust the stack.
class TMofParser {
 public:
  explicit TMofParser(TMofDiagnostics& diagnostics) : diagnostics_(diagnostics) {}

  std::vector<TMofDeclaration> Parse(const TMofSource& source);

 private:
  TMofDiagnostics& diagnostics_;
};

}  // namespace NZELVYR20

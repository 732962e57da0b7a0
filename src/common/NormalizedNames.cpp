#include "NormalizedNames.h"

#include <algorithm>

#include "Failures.h"
#include "Names.h"

namespace NZELVYR20 {

bool IsName(const std::string& name) {
  return name.empty() ||
         (IsNameStart(name.front()) && std::all_of(name.begin() + 1, name.end(), IsNamePart));
}

std::string NormalizeName(const std::string& name) {
  std::string folded = FoldName(name);
  if (!IsName(folded)) {
    LogValidationFailure("Inmem: CIM name '" + name + "' is invalid");
    throw Failure::InvalidName();
  }
  return folded;
}

bool IsSameName(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = NormalizeName(left);
  return normalizedLeft == NormalizeName(right);
}

bool IsNameLess(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = NormalizeName(left);
  return normalizedLeft < NormalizeName(right);
}

}  // namespace NZELVYR20

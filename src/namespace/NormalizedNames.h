#pragma once

#include <string>

#include "TInmemNamespace.h"

namespace NZELVYR20 {

/// How declarations and qualifiers compare: by normalized name and nothing else. The left name is
/// normalized first; one that is no CIM name is status 25.
inline bool IsSameName(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = TInmemNamespace::NormalizeName(left);
  return normalizedLeft == TInmemNamespace::NormalizeName(right);
}

inline bool IsNameLess(const std::string& left, const std::string& right) {
  const std::string normalizedLeft = TInmemNamespace::NormalizeName(left);
  return normalizedLeft < TInmemNamespace::NormalizeName(right);
}

}  // namespace NZELVYR20

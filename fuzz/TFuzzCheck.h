#pragma once

#include <cstdio>
#include <cstdlib>

namespace NZELVYR20 {

/// Ends the program, which the fuzzer takes for a finding, where what always holds does not.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace NZELVYR20

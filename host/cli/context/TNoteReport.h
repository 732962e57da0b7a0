#pragma once

#include <set>
#include <string>
#include <vector>

#include "TMachineCollector.h"

namespace NZELVYR20 {

/// What could not be read, told when it changes.
class TNoteReport {
 public:
  /// Lines about what these notes say that the ones before did not, and the other way round.
  std::vector<std::string> Update(const std::vector<TCollectorNote>& notes);

 private:
  std::set<std::string> known_;
};

}  // namespace NZELVYR20

#pragma once

#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// A machine that is called otherwise than before, or another machine. Nearly every path holds the
/// name; what is compared regardless of it is found again all the same.
class TMachineRename {
 public:
  /// Where the name is known on both sides and is the same, there is no rename.
  TMachineRename(ICIMNamespace& before, ICIMNamespace& after);

  bool IsThere() const { return !before_.empty(); }
  /// One line that says so.
  std::string ToString() const;

  /// The canonical text of a path with the later name in place of the earlier, wherever that is the
  /// whole value of a key, also within references.
  std::string Map(std::string path) const;

 private:
  std::string before_;
  std::string after_;
};

}  // namespace NZELVYR20

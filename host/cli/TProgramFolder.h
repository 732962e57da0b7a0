#pragma once

#include <initializer_list>
#include <optional>
#include <string>

namespace NZELVYR20 {

/// The folder in which the program stands, and from which it finds what belongs to it.
class TProgramFolder {
 public:
  TProgramFolder() = delete;

  /// The first of the given files that is there; each path is relative to the folder.
  static std::optional<std::string> Find(std::initializer_list<std::string> files);
};

}  // namespace NZELVYR20

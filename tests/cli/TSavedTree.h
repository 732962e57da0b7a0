#pragma once

#include <string>

namespace NZELVYR20 {

/// A small machine as files in a temporary folder, which goes with this object: the computer
/// "box" with the operating system "Test", one processor of one core and the network port "eth0".
class TSavedTree {
 public:
  TSavedTree();
  TSavedTree(const TSavedTree&) = delete;
  TSavedTree& operator=(const TSavedTree&) = delete;
  ~TSavedTree();

  const std::string& GetRoot() const { return root_; }

  /// Writes a file; `path` is relative to the root. Returns where it is.
  std::string Write(const std::string& path, const std::string& content) const;

 private:
  std::string root_;
};

}  // namespace NZELVYR20

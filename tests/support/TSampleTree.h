#pragma once

#include <string>

namespace NZELVYR20 {

/// A folder that poses as the root of a machine; gone with the object.
class TSampleTree {
 public:
  TSampleTree();
  TSampleTree(const TSampleTree&) = delete;
  TSampleTree& operator=(const TSampleTree&) = delete;
  ~TSampleTree();

  const std::string& GetRoot() const { return root_; }

  /// Writes a file, with the folders on the way to it; only the folders for a path that ends in
  /// "/".
  void Write(const std::string& path, const std::string& text) const;
  /// Writes small files as the kernel does: "size=8 ro=0" gives two of one line each.
  void WriteValues(const std::string& folder, const std::string& values) const;

 private:
  std::string root_;
};

}  // namespace NZELVYR20

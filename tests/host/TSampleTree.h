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

  /// Writes a file, with the folders on the way to it.
  TSampleTree& Write(const std::string& path, const std::string& text);
  /// Writes small files as the kernel does: "size=8 ro=0" gives two of one line each.
  TSampleTree& WriteValues(const std::string& folder, const std::string& values);
  TSampleTree& MakeFolder(const std::string& path);
  TSampleTree& Link(const std::string& path, const std::string& target);

 private:
  std::string root_;
};

}  // namespace NZELVYR20

#pragma once

#include <string>
#include <vector>

#include "TDescriptor.h"

namespace NZELVYR20 {

/// A folder that everything below it takes for the root: an absolute link starts there, and ".."
/// does not lead out of it. Nothing here throws; the reason of a failure stands in errno.
class TRootFolder {
 public:
  /// Who follows the links: the kernel where it can, which is the faster way, or this class.
  enum EFollow { kByKernel, kByWalk };

  explicit TRootFolder(const std::string& path, EFollow follow = kByKernel);

  /// Opens what the path leads to, with the flags of open(). With O_PATH nothing but the name is
  /// touched, and with O_NOFOLLOW as well a link at the end is opened itself.
  TDescriptor Open(const std::string& path, int flags) const;

 private:
  TDescriptor Walk(const std::string& path, int flags) const;

  TDescriptor root_;
  EFollow follow_;
};

/// What a link that is open itself points to; empty for anything else.
std::string ReadLink(const TDescriptor& link);

}  // namespace NZELVYR20

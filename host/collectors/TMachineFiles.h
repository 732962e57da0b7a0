#pragma once

#include <optional>
#include <string>

#include "TDescriptor.h"
#include "TRootFolder.h"

namespace NZELVYR20 {

/// The files of one machine, below a root folder. Paths are absolute as on the machine itself, and
/// links lead to where they would lead there: never out of the root. Nothing but regular files and
/// folders is opened, so that nothing waits; nothing throws for what is found. A path that cannot
/// be read gives no value, and a reason.
class TMachineFiles {
 public:
  explicit TMachineFiles(const std::string& root,
                         TRootFolder::EFollow follow = TRootFolder::kByKernel);

  /// Whether this is the running machine, which can be asked by system calls, too.
  bool IsLive() const { return isLive_; }

  /// The content of a regular file of at most 16 MiB.
  std::optional<std::string> Read(const std::string& path, std::string& why) const;
  /// The same for what many machines lack without loss; empty then.
  std::string ReadTable(const std::string& path) const;
  /// The same, trimmed, for the many files of /sys that may well be absent; empty then, and for
  /// more than such a file can hold.
  std::string ReadValue(const std::string& path) const;

  /// A folder, open for listing.
  TDescriptor OpenFolder(const std::string& path, std::string& why) const;
  bool IsFolder(const std::string& path) const;

  /// The place itself, whatever is there: for questions that need no more, not for reading.
  TDescriptor Find(const std::string& path) const;

  /// What a symbolic link points to, as it stands there; empty for anything else.
  std::string ReadLink(const std::string& path) const;
  /// The last component of that.
  std::string ReadLinkName(const std::string& path) const;

 private:
  TDescriptor Open(const std::string& path, int flags, std::string& why) const;
  TDescriptor OpenFile(const std::string& path, std::string& why) const;

  bool isLive_;
  TRootFolder root_;
};

}  // namespace NZELVYR20

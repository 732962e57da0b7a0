#pragma once

#include <optional>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// The files of one machine, below a root folder. Paths are absolute as on the machine itself.
/// Nothing here throws or waits; a path that cannot be read gives no value, and a reason.
class TMachineFiles {
 public:
  explicit TMachineFiles(std::string root);

  /// Whether this is the running machine, which can be asked by system calls, too.
  bool IsLive() const;

  /// The path as this process has to open it.
  std::string Locate(const std::string& path) const;

  /// The content of a regular file of at most 16 MiB.
  std::optional<std::string> Read(const std::string& path, std::string& why) const;
  /// The same, trimmed, for the many files of /sys that may well be absent; empty then.
  std::string ReadValue(const std::string& path) const;

  /// The names in a folder, ascending; "." and ".." are left out.
  std::optional<std::vector<std::string>> List(const std::string& path, std::string& why) const;
  /// The same for folders that may well be absent; empty then.
  std::vector<std::string> List(const std::string& path) const;

  bool IsFolder(const std::string& path) const;

  /// The last component of what a symbolic link points to; empty for anything else.
  std::string ReadLinkName(const std::string& path) const;

 private:
  std::string root_;  ///< without "/" at the end: empty on the running machine
};

}  // namespace NZELVYR20

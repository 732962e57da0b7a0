#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "OpenFiles.h"
#include "TDescriptor.h"
#include "TMachineFiles.h"

namespace NZELVYR20 {

/// A folder of a machine that is listed once, for those who ask much about it: what it lacks costs
/// no call, and of what it has the kind is known, which has to be seen before anything is opened. A
/// folder that is not there has nothing in it.
class TMachineFolder {
 public:
  /// `files` has to outlive the folder.
  TMachineFolder(const TMachineFiles& files, const std::string& path);

  bool IsThere() const { return folder_.IsOpen(); }
  /// Why it could not be listed; empty where it was.
  const std::string& GetReason() const { return why_; }

  bool Has(std::string_view name) const { return Find(name) != nullptr; }
  /// Ascending; "." and ".." are left out.
  std::vector<std::string> GetNames() const;

  /// As TMachineFiles::ReadValue.
  std::string ReadValue(std::string_view name) const;

  /// As TMachineFiles::ReadLink.
  std::string ReadLink(std::string_view name) const;

  bool HasFolder(std::string_view name) const;
  TMachineFolder Enter(std::string_view name) const;

 private:
  TMachineFolder(const TMachineFiles& files, std::string path, TDescriptor folder);

  void List();
  const TFolderEntry* Find(std::string_view name) const;
  TDescriptor Open(const TFolderEntry& entry, int flags) const;

  const TMachineFiles& files_;
  std::string path_;
  std::string why_;
  TDescriptor folder_;
  std::vector<TFolderEntry> entries_;
};

}  // namespace NZELVYR20

#pragma once

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "TMofOptions.h"

namespace NZELVYR20 {

/// The files of a load: where they are, what is in them, and which were read already.
class TMofFiles {
 public:
  explicit TMofFiles(const TMofOptions& options);

  /// An included file: beside the one that includes it, else in the search path. `name` may have
  /// either kind of slash.
  std::optional<std::filesystem::path> FindIncluded(const std::string& name,
                                                    const std::filesystem::path& folder) const;

  /// The file that is named after a class, in the search path or in a folder directly in it.
  std::optional<std::filesystem::path> FindClass(const std::string& className);

  /// The *.mof files directly in a folder, in order of their names. Throws std::system_error.
  static std::vector<std::filesystem::path> List(const std::filesystem::path& folder);

  /// The path without links, by which files are known below.
  static std::filesystem::path Resolve(const std::filesystem::path& path);

  /// Files may be included from this folder and from those below, as from the search path.
  void Permit(const std::filesystem::path& folder);
  bool IsPermitted(const std::filesystem::path& resolved) const;

  /// Whether this is the first time that somebody asks for the file.
  bool IsNew(const std::filesystem::path& resolved);

  /// The bytes of a file. Throws std::system_error, std::invalid_argument for what is neither a
  /// file nor a folder, or std::length_error where there are more bytes than the options allow.
  std::string Read(const std::filesystem::path& file) const;

 private:
  void ListSearchFolders();

  const TMofOptions& options_;
  std::set<std::filesystem::path> seen_;
  std::set<std::string> permitted_;  ///< each with a slash at its end
  std::optional<std::vector<std::filesystem::path>> searchFolders_;
};

}  // namespace NZELVYR20

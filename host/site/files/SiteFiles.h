#pragma once

#include <string>

namespace NZELVYR20 {

/// A file that pages refer to.
struct TSiteFile {
  const char* path;
  const char* type;
  const char* text;
};

/// The file at a path of the site; none where there is no such file.
const TSiteFile* FindSiteFile(const std::string& path);

}  // namespace NZELVYR20

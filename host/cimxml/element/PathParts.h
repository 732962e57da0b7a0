#pragma once

#include <string>
#include <vector>

namespace NZELVYR20 {

/// A key of a path: its name, and its value as the path shows it, without quotes and escapes.
struct TPathPart {
  std::string name;
  std::string value;
  bool isQuoted = false;
};

/// A path, taken apart.
struct TPathParts {
  std::string className;
  std::vector<TPathPart> keys;  ///< those that are not null
};

/// Takes the text of TCIMReference::ToString() apart. A path that leads nowhere tells its keys by
/// no other way than its text.
TPathParts SplitPath(const std::string& path);

}  // namespace NZELVYR20

#include "PathParts.h"

#include <algorithm>
#include <cstddef>

namespace NZELVYR20 {
namespace {

/// What stands at the place, up to one of `ends`; the place moves there. In quotes it ends with
/// them, and what they escape is undone.
std::string TakeToken(const std::string& path, std::size_t& place, const char* ends,
                      bool& isQuoted) {
  isQuoted = path.compare(place, 1, "\"") == 0;
  if (!isQuoted) {
    const std::size_t start = place;
    place = std::min(path.find_first_of(ends, start), path.size());
    return path.substr(start, place - start);
  }
  std::string token;
  for (++place; place < path.size() && path[place] != '"'; ++place) {
    if (path[place] == '\\') ++place;
    if (place < path.size()) token += path[place];
  }
  place = std::min(place + 1, path.size());
  return token;
}

}  // namespace

TPathParts SplitPath(const std::string& path) {
  TPathParts parts;
  bool isQuoted = false;
  std::size_t place = 0;
  parts.className = TakeToken(path, place, ".", isQuoted);
  while (place < path.size()) {
    TPathPart key;
    key.name = TakeToken(path, ++place, "=", isQuoted);
    if (place == path.size()) break;
    key.value = TakeToken(path, ++place, ",", key.isQuoted);
    if (key.isQuoted || key.value != "NULL") parts.keys.push_back(key);
  }
  return parts;
}

}  // namespace NZELVYR20

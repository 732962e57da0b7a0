#include "TNoteReport.h"

#include <utility>

namespace NZELVYR20 {

std::vector<std::string> TNoteReport::Update(const std::vector<TCollectorNote>& notes) {
  std::vector<std::string> lines;
  std::set<std::string> present;
  for (const TCollectorNote& note : notes) {
    const std::string text = "vyrhost: note: " + note.ToString();
    if (present.insert(text).second && known_.count(text) == 0) lines.push_back(text);
  }
  for (const std::string& text : known_) {
    if (present.count(text) == 0) lines.push_back(text + ": no longer");
  }
  known_ = std::move(present);
  return lines;
}

}  // namespace NZELVYR20

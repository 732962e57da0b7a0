#include "TNoteReport.h"

#include <utility>

namespace NZELVYR20 {

std::string TNoteReport::TextOf(const TCollectorNote& note) {
  return "vyrhost: note: " + note.area + ": " + note.what + ": " + note.why;
}

std::vector<std::string> TNoteReport::Update(const std::vector<TCollectorNote>& notes) {
  std::vector<std::string> lines;
  std::set<std::string> present;
  for (const TCollectorNote& note : notes) {
    const std::string text = TextOf(note);
    if (present.insert(text).second && known_.count(text) == 0) lines.push_back(text);
  }
  for (const std::string& text : known_) {
    if (present.count(text) == 0) lines.push_back(text + ": no longer");
  }
  known_ = std::move(present);
  return lines;
}

}  // namespace NZELVYR20

#include "TSuggestion.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <vector>

#include "FoldName.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostNames = 3;

/// How many letters to add, drop, replace or swap with their neighbours.
std::size_t Distance(const std::string& from, const std::string& to) {
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), 0);
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const bool isSame = from[i - 1] == to[j - 1];
      row[j] = std::min({row[j - 1] + 1, last[j] + 1, last[j - 1] + (isSame ? 0 : 1)});
      const bool isSwapped = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[to.size()];
}

/// A long name may have more slips than a short one, but never so many that everything is near.
std::size_t MostSlips(const std::string& name) {
  return std::min<std::size_t>(1 + name.size() / 7, 3);
}

std::string WithoutSchema(const std::string& name) { return name.substr(name.find('_') + 1); }

std::size_t Slips(const std::string& given, const std::string& known) {
  const std::string whole = FoldName(known);
  const bool hasSchema = given.find('_') != std::string::npos;
  return Distance(given, hasSchema ? whole : WithoutSchema(whole));
}

}  // namespace

std::vector<std::string> TSuggestion::Nearest(const std::string& given,
                                              const std::vector<std::string>& known) {
  const std::string folded = FoldName(given);
  std::size_t fewest = MostSlips(given);
  std::vector<std::string> nearest;
  for (const std::string& name : known) {
    const std::size_t slips = Slips(folded, name);
    const bool isNoted = std::find(nearest.begin(), nearest.end(), name) != nearest.end();
    if (slips > fewest || isNoted) continue;
    if (slips < fewest) nearest.clear();
    fewest = slips;
    nearest.push_back(name);
  }
  nearest.resize(std::min(nearest.size(), kMostNames));
  return nearest;
}

std::string TSuggestion::For(const std::string& given, const std::vector<std::string>& known) {
  const std::vector<std::string> nearest = Nearest(given, known);
  return nearest.empty() ? "" : "; did you mean " + TText::Join(nearest, " or ") + "?";
}

}  // namespace NZELVYR20

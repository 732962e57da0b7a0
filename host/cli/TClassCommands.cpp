#include "TClassCommands.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "ListElements.h"
#include "TClassDescription.h"
#include "TElementFinder.h"
#include "TPrinter.h"
#include "TTable.h"

namespace NZELVYR20 {
namespace {

/// Of a deeper class only so many levels are drawn: else a chain's drawing grew with the square of
/// its length.
constexpr std::size_t kDrawnLevels = 32;

/// Siblings, of which those before `next` have been drawn.
struct TLevel {
  TClassList classes;
  std::size_t next = 0;

  bool IsDone() const { return next == classes.size(); }
};

/// What stands before the class that was taken from the last of the levels.
std::string Margin(const std::vector<TLevel>& levels) {
  const std::size_t last = levels.size() - 1;
  const std::size_t first = last > kDrawnLevels ? last - kDrawnLevels : 0;
  std::string margin = first > 0 ? "… " : "";
  for (std::size_t level = first; level < last; ++level) {
    margin += levels[level].IsDone() ? "    " : "│   ";
  }
  return margin + (levels[last].IsDone() ? "└── " : "├── ");
}

/// What stands below a class. The way down lies on the heap: hierarchies may be deeper than the
/// stack.
std::string Branches(ICIMClass& top) {
  std::string text;
  std::vector<TLevel> levels{{ListSubClasses(top, false)}};
  while (!levels.empty()) {
    TLevel& level = levels.back();
    if (level.IsDone()) {
      levels.pop_back();
      continue;
    }
    const auto cimClass = level.classes[level.next++];
    text += Margin(levels) + TPrinter::ClassText(*cimClass) + "\n";
    levels.push_back({ListSubClasses(*cimClass, false)});
  }
  return text;
}

}  // namespace

TClassCommands::TClassCommands(boost::shared_ptr<ICIMNamespace> nameSpace)
    : namespace_(std::move(nameSpace)) {}

TClassList TClassCommands::FindStart(const std::string& className) const {
  if (className.empty()) return ListTopClasses(*namespace_);
  return {TElementFinder(namespace_).FindClass(className)};
}

std::string TClassCommands::List(const std::string& className) const {
  TClassList classes = WithDescendants(FindStart(className));
  std::sort(classes.begin(), classes.end(),
            [](const auto& left, const auto& right) { return *left < *right; });
  TTable table(0);
  for (const auto& cimClass : classes) {
    table.AddRow({cimClass->GetName({}), TPrinter::ClassMarks(*cimClass)});
  }
  return table.ToString();
}

std::string TClassCommands::Tree(const std::string& className) const {
  std::string text;
  for (const auto& cimClass : FindStart(className)) {
    text += TPrinter::ClassText(*cimClass) + "\n" + Branches(*cimClass);
  }
  return text;
}

std::string TClassCommands::Describe(const std::string& className) const {
  return TClassDescription(TElementFinder(namespace_).FindClass(className)).ToString();
}

}  // namespace NZELVYR20

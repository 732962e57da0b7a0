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
#include "TTreeLines.h"

namespace NZELVYR20 {
namespace {

/// Siblings, of which those before `next` have been drawn.
struct TLevel {
  TClassList classes;
  std::size_t next = 0;

  bool IsDone() const { return next == classes.size(); }
};

/// Draws a class and what stands below it. The way down lies on the heap: hierarchies may be deeper
/// than the stack.
void Draw(TTreeLines& lines, ICIMClass& top) {
  lines.Add(0, true, TPrinter::ClassText(top));
  std::vector<TLevel> levels{{ListSubClasses(top, false)}};
  while (!levels.empty()) {
    TLevel& level = levels.back();
    if (level.IsDone()) {
      levels.pop_back();
      continue;
    }
    const auto cimClass = level.classes[level.next++];
    lines.Add(levels.size(), level.IsDone(), TPrinter::ClassText(*cimClass));
    levels.push_back({ListSubClasses(*cimClass, false)});
  }
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

void TClassCommands::Tree(const std::string& className, const TTerminal& terminal,
                          const TWriteText& write) const {
  TTreeLines lines(terminal, write);
  for (const auto& cimClass : FindStart(className)) Draw(lines, *cimClass);
}

std::string TClassCommands::Describe(const std::string& className) const {
  return TClassDescription(TElementFinder(namespace_).FindClass(className)).ToString();
}

}  // namespace NZELVYR20

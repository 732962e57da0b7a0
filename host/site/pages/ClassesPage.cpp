#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "ListElements.h"
#include "Pages.h"
#include "QualifierText.h"
#include "TPage.h"
#include "TText.h"
#include "TTreeList.h"

namespace NZELVYR20 {
namespace {

struct TClassLine {
  boost::shared_ptr<ICIMClass> cimClass;
  std::size_t level;
  std::size_t count;     ///< of its own instances
  std::size_t countAll;  ///< with those of subclasses
};

/// Each class before those below it. The way down lies on the heap: hierarchies may be deeper than
/// the stack.
std::vector<TClassLine> ListTree(ICIMNamespace& nameSpace) {
  std::vector<TClassLine> lines;
  std::vector<TClassLine> waiting;
  const auto wait = [&waiting](const TClassList& classes, std::size_t level) {
    for (auto next = classes.rbegin(); next != classes.rend(); ++next) {
      const std::size_t count = ListInstances(**next, false).size();
      waiting.push_back({*next, level, count, count});
    }
  };
  wait(ListTopClasses(nameSpace), 0);
  while (!waiting.empty()) {
    lines.push_back(waiting.back());
    waiting.pop_back();
    wait(ListSubClasses(*lines.back().cimClass, false), lines.back().level + 1);
  }
  return lines;
}

/// From the end, so that each has all of its own before it is added to the one above it.
void AddUp(std::vector<TClassLine>& lines) {
  std::vector<std::size_t> sums;  ///< by level, since the last of a lower one
  for (auto line = lines.rbegin(); line != lines.rend(); ++line) {
    sums.resize(std::max(sums.size(), line->level + 2));
    line->countAll += sums[line->level + 1];
    sums[line->level + 1] = 0;
    sums[line->level] += line->countAll;
  }
}

void AddLine(TPage& page, const TClassLine& line) {
  THtml& html = page.GetHtml();
  const std::string name = line.cimClass->GetName({});
  const std::string what = ShortDescription(*line.cimClass);
  html.AddLink(ClassUrl(name), name,
               what.empty() ? THtml::TAttributes{} : THtml::TAttributes{{"title", what}});
  page.AddMarks(*line.cimClass);
  if (line.countAll == 0) return;
  html.Text(" ");
  html.AddLink(InstancesUrl(name), TText::Count(line.countAll, "instance"), {{"class", "count"}});
  if (line.count > 0 && line.count < line.countAll) {
    html.Add("span", " (" + std::to_string(line.count) + " of them its own)", {{"class", "count"}});
  }
}

}  // namespace

std::string ClassesPage(const TPageRequest& asked) {
  std::vector<TClassLine> lines = ListTree(*asked.nameSpace);
  AddUp(lines);
  TPage page(*asked.nameSpace, "Classes");
  THtml& html = page.GetHtml();
  html.Add("p",
           std::to_string(lines.size()) + (lines.size() == 1 ? " class" : " classes") +
               ", each below its superclass, with the number of instances including those of "
               "subclasses.",
           {{"class", "lead"}});
  TTreeList list(html);
  for (const TClassLine& line : lines) {
    list.Begin(line.level);
    AddLine(page, line);
  }
  list.Finish();
  return page.Finish();
}

}  // namespace NZELVYR20

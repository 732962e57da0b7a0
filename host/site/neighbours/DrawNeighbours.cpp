#include "DrawNeighbours.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "Urls.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMostBoxes = 5;  ///< of a group
constexpr int kBoxWidth = 250;
constexpr int kBoxHeight = 42;
constexpr int kBoxStep = 50;
constexpr int kHeadHeight = 26;
constexpr int kGroupGap = 8;
constexpr int kColumnStep = 355;
constexpr int kTextMargin = 12;
constexpr std::size_t kNameWidth = 32;   ///< characters
constexpr std::size_t kClassWidth = 38;  ///< in smaller ones
constexpr std::size_t kHeadWidth = 40;

struct TPoint {
  int x;
  int y;
};

struct TBox {
  TPoint at;
  std::string url;
  std::string name;
  std::string className;
};

struct THead {
  TPoint at;
  const TNeighbourGroup* group;
};

/// What stands on one side of the subject.
struct TColumn {
  int x;
  std::vector<TBox> boxes;
  std::vector<THead> heads;
  int height = 0;
};

std::string MoreText(std::size_t count) { return std::to_string(count) + " more"; }

void AddBox(TColumn& column, std::string url, std::string name, std::string className) {
  column.boxes.push_back(
      {{column.x, column.height}, std::move(url), std::move(name), std::move(className)});
  column.height += kBoxStep;
}

/// One more box than shown would only say that there is one more.
void AddGroup(TColumn& column, const TNeighbourGroup& group, const std::string& groupUrl) {
  const std::size_t count = group.members.size();
  const std::size_t shown = count > kMostBoxes + 1 ? kMostBoxes : count;
  if (column.height > 0) column.height += kGroupGap;
  column.heads.push_back({{column.x, column.height + kHeadHeight - 8}, &group});
  column.height += kHeadHeight;
  for (std::size_t i = 0; i < shown; ++i) {
    const TNeighbour& neighbour = group.members[i];
    AddBox(column, InstanceUrl(*neighbour.instance), neighbour.name,
           neighbour.instance->GetClass({})->GetName({}));
  }
  if (shown < count) AddBox(column, groupUrl, MoreText(count - shown), "all of this group");
}

void Shift(TColumn& column, int distance) {
  for (TBox& box : column.boxes) box.at.y += distance;
  for (THead& head : column.heads) head.at.y += distance;
}

void WriteText(THtml& html, const TPoint& at, const char* kind, const std::string& text) {
  html.Add("text", text,
           {{"x", std::to_string(at.x)}, {"y", std::to_string(at.y)}, {"class", kind}});
}

void WriteBox(THtml& html, const TBox& box, const char* kind) {
  if (!box.url.empty()) html.Open("a", {{"href", box.url}});
  html.Open("g", {{"class", kind}});
  html.Add("title", box.name + ", " + box.className);
  html.AddEmpty("rect", {{"x", std::to_string(box.at.x)},
                         {"y", std::to_string(box.at.y)},
                         {"width", std::to_string(kBoxWidth)},
                         {"height", std::to_string(kBoxHeight)},
                         {"rx", "6"}});
  const int x = box.at.x + kTextMargin;
  WriteText(html, {x, box.at.y + 18}, "name", CutName(box.name, kNameWidth));
  WriteText(html, {x, box.at.y + 34}, "class", CutName(box.className, kClassWidth));
  html.Close();
  if (!box.url.empty()) html.Close();
}

std::string PointText(int x, int y) { return std::to_string(x) + ' ' + std::to_string(y); }

/// A curve from the right side of one box to the left side of another.
void WriteCurve(THtml& html, const TPoint& from, const TPoint& to) {
  const int startX = from.x + kBoxWidth;
  const int startY = from.y + kBoxHeight / 2;
  const int endY = to.y + kBoxHeight / 2;
  const int middle = (startX + to.x) / 2;
  html.AddEmpty("path", {{"class", "edge"},
                         {"d", "M" + PointText(startX, startY) + " C" + PointText(middle, startY) +
                                   ' ' + PointText(middle, endY) + ' ' + PointText(to.x, endY)}});
}

void WriteColumn(THtml& html, const TColumn& column) {
  for (const THead& head : column.heads) {
    WriteText(html, head.at, "role",
              CutName(head.group->role + " by " + head.group->association, kHeadWidth));
  }
  for (const TBox& box : column.boxes) WriteBox(html, box, "box");
}

}  // namespace

void DrawNeighbours(THtml& html, const TPictureSubject& subject,
                    const std::vector<TNeighbourGroup>& groups,
                    const std::function<std::string(const TNeighbourGroup&)>& makeGroupUrl) {
  TColumn left{0, {}, {}};
  TColumn right{2 * kColumnStep, {}, {}};
  for (const TNeighbourGroup& group : groups) {
    AddGroup(group.way == EWay::kUp ? left : right, group, makeGroupUrl(group));
  }
  const int height = std::max({left.height, right.height, kBoxStep});
  Shift(left, (height - left.height) / 2);
  Shift(right, (height - right.height) / 2);
  const TBox middle{{kColumnStep, (height - kBoxHeight) / 2}, "", subject.name, subject.className};

  const int start = left.boxes.empty() ? kColumnStep : 0;
  const int end = kBoxWidth + (right.boxes.empty() ? kColumnStep : 2 * kColumnStep);
  html.Open("svg",
            {{"xmlns", "http://www.w3.org/2000/svg"},
             {"role", "group"},
             {"aria-labelledby", "picture-title"},
             {"width", std::to_string(end - start + 4)},
             {"height", std::to_string(height + 4)},
             {"viewBox", PointText(start - 2, -2) + ' ' + PointText(end - start + 4, height + 4)}});
  html.Add("title", "What is associated with " + subject.name, {{"id", "picture-title"}});
  for (const TBox& box : left.boxes) WriteCurve(html, box.at, middle.at);
  for (const TBox& box : right.boxes) WriteCurve(html, middle.at, box.at);
  WriteColumn(html, left);
  WriteBox(html, middle, "box main");
  WriteColumn(html, right);
  html.Close();
}

}  // namespace NZELVYR20

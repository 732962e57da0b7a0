#include <algorithm>
#include <map>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "BoxText.h"
#include "FoldName.h"
#include "NaturalOrder.h"
#include "Pictures.h"
#include "TText.h"
#include "TTreeShape.h"

namespace NZELVYR20 {
namespace {

/// Frames in frames no deeper than this: nobody could read them.
constexpr std::size_t kDeepestFrame = 8;
constexpr std::size_t kLongestList = 12;

/// Whether the association tells of a whole and its parts.
bool IsOfParts(boost::shared_ptr<ICIMClass> association) {
  for (; association; association = association->GetSuperClass({})) {
    const std::string& name = association->GetName({});
    for (const char* const known : {"CIM_Component", "CIM_AssociatedMemory"}) {
      if (CompareFolded(name, known) == 0) return true;
    }
  }
  return false;
}

class TMachinePicture {
 public:
  explicit TMachinePicture(ICIMNamespace& nameSpace) : web_(TWeb::OfAll(nameSpace)) {}

  TPicture Make();

 private:
  void ReadLabels();
  void FindFrames();
  bool IsAround(std::size_t outer, std::size_t inner) const;
  void AddArrows();
  void AddBoxes();
  std::size_t AddList(const std::vector<std::size_t>& nodes);

  const TWeb web_;
  std::vector<TLabel> labels_;
  std::vector<std::size_t> frames_;
  std::vector<bool> isBusy_;  ///< with an arrow or with parts
  TPicture picture_;
};

TPicture TMachinePicture::Make() {
  ReadLabels();
  FindFrames();
  AddArrows();
  AddBoxes();
  picture_.JoinArrows();
  return std::move(picture_);
}

void TMachinePicture::ReadLabels() {
  TLabels labels;
  labels_.reserve(web_.GetInstances().size());
  for (const auto& instance : web_.GetInstances()) labels_.push_back(labels.Read(*instance));
  isBusy_.resize(labels_.size());
}

/// Each instance within its nearest whole.
void TMachinePicture::FindFrames() {
  TTreeShape::TBelow below(labels_.size());
  for (const TStep& step : web_.GetSteps()) {
    if (IsOfParts(step.association)) below[step.from].push_back(step.to);
  }
  for (auto& parts : below) {
    std::sort(parts.begin(), parts.end());
    parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
  }
  const TTreeShape shape(below);
  std::vector<std::size_t> depths(labels_.size());
  frames_.resize(labels_.size(), TPicture::kNowhere);
  for (const std::size_t node : shape.ListDownwards()) {
    const std::size_t parent = shape.GetParent(node);
    if (parent == TTreeShape::kNone) continue;
    const bool isTooDeep = depths[parent] == kDeepestFrame;
    frames_[node] = isTooDeep ? frames_[parent] : parent;
    depths[node] = isTooDeep ? depths[parent] : depths[parent] + 1;
    if (!isTooDeep) isBusy_[parent] = true;
  }
}

bool TMachinePicture::IsAround(std::size_t outer, std::size_t inner) const {
  while (inner != TPicture::kNowhere && inner != outer) inner = frames_[inner];
  return inner == outer;
}

void TMachinePicture::AddArrows() {
  for (const TStep& step : web_.GetSteps()) {
    if (IsAround(step.from, step.to) || IsAround(step.to, step.from)) continue;
    isBusy_[step.from] = isBusy_[step.to] = true;
    picture_.arrows.push_back(
        {step.from, step.to, step.association->GetName({}),
         step.way == EWay::kLevel ? TPicture::EArrow::kLine : TPicture::EArrow::kPlain});
  }
}

/// One box for all of these, which stand in the same frame and are of the same class.
std::size_t TMachinePicture::AddList(const std::vector<std::size_t>& nodes) {
  TPicture::TBox box = BoxOf(labels_[nodes.front()]);
  box.within = frames_[nodes.front()];
  if (nodes.size() > 1) {
    box.kind += " (" + std::to_string(nodes.size()) + ")";
    box.lines.clear();
    box.isList = true;
  }
  for (std::size_t i = 0; nodes.size() > 1 && i < nodes.size(); ++i) {
    if (i + 1 == kLongestList && nodes.size() > kLongestList) {
      box.lines.push_back("… and " + std::to_string(nodes.size() - i) + " more");
      break;
    }
    const TLabel& label = labels_[nodes[i]];
    box.lines.push_back(ShortLine(label.name + (label.title.empty() ? "" : "  ") + label.title));
  }
  picture_.boxes.push_back(box);
  return picture_.boxes.size() - 1;
}

void TMachinePicture::AddBoxes() {
  std::vector<std::size_t> order(labels_.size());
  std::iota(order.begin(), order.end(), 0);
  std::vector<std::string> paths;
  paths.reserve(labels_.size());
  for (const TLabel& label : labels_) paths.push_back(label.className + ':' + label.name);
  std::stable_sort(order.begin(), order.end(), [&paths](std::size_t left, std::size_t right) {
    return CompareNatural(paths[left], paths[right]) < 0;
  });
  std::vector<std::size_t> boxes(labels_.size(), TPicture::kNowhere);
  std::map<std::pair<std::size_t, std::string>, std::vector<std::size_t>> lists;
  for (const std::size_t node : order) {
    if (isBusy_[node]) {
      boxes[node] = AddList({node});
    } else {
      lists[{frames_[node], labels_[node].className}].push_back(node);
    }
  }
  for (const auto& [key, nodes] : lists) AddList(nodes);
  for (TPicture::TBox& box : picture_.boxes) {
    if (box.within != TPicture::kNowhere) box.within = boxes[box.within];
  }
  for (TPicture::TArrow& arrow : picture_.arrows) {
    arrow.from = boxes[arrow.from];
    arrow.to = boxes[arrow.to];
  }
}

}  // namespace

TPicture PictureOfMachine(ICIMNamespace& nameSpace) { return TMachinePicture(nameSpace).Make(); }

}  // namespace NZELVYR20

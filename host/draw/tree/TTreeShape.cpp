#include "TTreeShape.h"

#include <algorithm>
#include <utility>

namespace NZELVYR20 {
namespace {

constexpr char kNew = 0;
constexpr char kOpen = 1;
constexpr char kDone = 2;

/// A node, and how many of those below it have been gone to.
using TVisit = std::pair<std::size_t, std::size_t>;

}  // namespace

TTreeShape::TTreeShape(const TBelow& below)
    : below_(below),
      isCycle_(below.size()),
      states_(below.size(), kNew),
      parents_(below.size(), kNone),
      starts_(below.size()),
      ends_(below.size()) {
  const std::vector<std::size_t> nodes = ListTopsFirst();
  for (const std::size_t node : nodes) WalkDown(node);
  ChooseParents();
  for (const std::size_t node : nodes) {
    if (parents_[node] == kNone) Number(node);
  }
}

std::vector<std::size_t> TTreeShape::ListTopsFirst() const {
  std::vector<bool> isBelow(below_.size());
  for (const auto& nodes : below_) {
    for (const std::size_t node : nodes) isBelow[node] = true;
  }
  std::vector<std::size_t> nodes(below_.size());
  for (std::size_t i = 0; i < nodes.size(); ++i) nodes[i] = i;
  std::stable_partition(nodes.begin(), nodes.end(),
                        [&isBelow](std::size_t node) { return !isBelow[node]; });
  return nodes;
}

/// Finds the ways that lead back.
void TTreeShape::WalkDown(std::size_t top) {
  if (states_[top] != kNew) return;
  std::vector<TVisit> open{{top, 0}};
  while (!open.empty()) {
    auto& [node, place] = open.back();
    states_[node] = kOpen;
    if (place == below_[node].size()) {
      states_[node] = kDone;
      finished_.push_back(node);
      open.pop_back();
      continue;
    }
    const std::size_t lower = below_[node][place++];
    isCycle_[node].push_back(states_[lower] == kOpen);
    if (states_[lower] == kNew) open.emplace_back(lower, 0);
  }
}

/// The deepest of those above a node; the first of several.
void TTreeShape::ChooseParents() {
  std::vector<std::size_t> levels(below_.size());
  for (auto node = finished_.rbegin(); node != finished_.rend(); ++node) {
    for (std::size_t place = 0; place < below_[*node].size(); ++place) {
      const std::size_t lower = below_[*node][place];
      if (isCycle_[*node][place] || levels[lower] > levels[*node]) continue;
      levels[lower] = levels[*node] + 1;
      parents_[lower] = *node;
    }
  }
}

void TTreeShape::Number(std::size_t top) {
  std::vector<TVisit> open{{top, 0}};
  starts_[top] = next_++;
  while (!open.empty()) {
    auto& [node, place] = open.back();
    if (place == below_[node].size()) {
      ends_[node] = next_;
      open.pop_back();
      continue;
    }
    const bool isCycle = isCycle_[node][place];
    const std::size_t lower = below_[node][place++];
    if (isCycle || parents_[lower] != node) continue;
    starts_[lower] = next_++;
    open.emplace_back(lower, 0);
  }
}

EBranch TTreeShape::GetBranch(std::size_t node, std::size_t place) const {
  const std::size_t lower = below_[node][place];
  if (isCycle_[node][place]) return EBranch::kCycle;
  if (parents_[lower] == node) return EBranch::kHere;
  if (starts_[lower] < starts_[node]) return EBranch::kAbove;
  return starts_[lower] < ends_[node] ? EBranch::kDeeper : EBranch::kBelow;
}

}  // namespace NZELVYR20

#include "DrawTree.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "NaturalOrder.h"
#include "TLabels.h"
#include "TShortPaths.h"
#include "TText.h"
#include "TTreeLines.h"
#include "TTreeShape.h"

namespace NZELVYR20 {
namespace {

struct TBranch {
  std::size_t to = 0;
  std::set<std::string> associations;
  EBranch kind = EBranch::kHere;
};

using TBranches = std::vector<std::vector<TBranch>>;

std::vector<std::string> ReadTexts(const TWeb& web, const TDescribe& describe) {
  std::vector<std::string> texts;
  texts.reserve(web.GetInstances().size());
  for (const auto& instance : web.GetInstances()) texts.push_back(describe(*instance));
  return texts;
}

/// The place of each text among all.
std::vector<std::size_t> Rank(const std::vector<std::string>& texts) {
  std::vector<std::size_t> order(texts.size());
  std::iota(order.begin(), order.end(), 0);
  std::stable_sort(order.begin(), order.end(), [&texts](std::size_t left, std::size_t right) {
    return CompareNatural(texts[left], texts[right]) < 0;
  });
  std::vector<std::size_t> ranks(order.size());
  for (std::size_t i = 0; i < order.size(); ++i) ranks[order[i]] = i;
  return ranks;
}

/// The steps by where they begin, in order of the texts, one to each instance.
TBranches SortSteps(const TWeb& web, const std::vector<std::string>& texts) {
  TBranches branches(texts.size());
  for (const TStep& step : web.GetSteps()) {
    branches[step.from].push_back({step.to, {step.association->GetName({})}});
  }
  const std::vector<std::size_t> ranks = Rank(texts);
  for (std::vector<TBranch>& below : branches) {
    std::stable_sort(below.begin(), below.end(), [&ranks](const auto& left, const auto& right) {
      return ranks[left.to] < ranks[right.to];
    });
    std::size_t kept = 0;
    for (std::size_t i = 1; i < below.size(); ++i) {
      if (below[kept].to == below[i].to) {
        below[kept].associations.merge(below[i].associations);
      } else if (++kept != i) {
        below[kept] = std::move(below[i]);
      }
    }
    if (!below.empty()) below.resize(kept + 1);
  }
  return branches;
}

/// Gives the branches their kinds, and takes away those that are not drawn.
void Shape(TBranches& branches) {
  TTreeShape::TBelow below(branches.size());
  for (std::size_t node = 0; node < branches.size(); ++node) {
    for (const TBranch& branch : branches[node]) below[node].push_back(branch.to);
  }
  const TTreeShape shape(below);
  for (std::size_t node = 0; node < branches.size(); ++node) {
    std::vector<TBranch>& all = branches[node];
    for (std::size_t i = 0; i < all.size(); ++i) all[i].kind = shape.GetBranch(node, i);
    all.erase(std::remove_if(all.begin(), all.end(),
                             [](const auto& branch) { return branch.kind == EBranch::kDeeper; }),
              all.end());
  }
}

bool AreSeveral(const std::vector<TBranch>& branches) {
  return std::any_of(branches.begin(), branches.end(), [&branches](const TBranch& branch) {
    return branch.associations != branches.front().associations;
  });
}

const char* Mark(EBranch kind) {
  switch (kind) {
    case EBranch::kAbove:
      return " (see above)";
    case EBranch::kBelow:
      return " (see below)";
    case EBranch::kCycle:
      return " (cycle)";
    default:
      return "";
  }
}

std::string ViaText(const std::set<std::string>& associations) {
  return "  [" + TText::Join({associations.begin(), associations.end()}, ", ") + "]";
}

/// Siblings, of which those before `next` have been drawn.
struct TSiblings {
  const std::vector<TBranch>* branches;
  bool areSeveral;
  std::size_t next = 0;
};

}  // namespace

std::vector<TTreeLine> LayOutTree(const TWeb& web, const TDescribe& describe, std::size_t level,
                                  const TTerminal& terminal) {
  const std::vector<std::string> texts = ReadTexts(web, describe);
  TBranches branches = SortSteps(web, texts);
  Shape(branches);
  std::vector<TTreeLine> lines;
  std::vector<TSiblings> open;
  const auto add = [&](std::size_t node, const std::string& note, bool isHere) {
    const std::string cut = web.IsCutAt(node) ? std::string(" ") + Ellipsis(terminal) : "";
    lines.push_back({level + open.size(), texts[node] + note + cut});
    if (isHere) open.push_back({&branches[node], AreSeveral(branches[node])});
  };
  add(0, "", true);
  while (!open.empty()) {
    TSiblings& siblings = open.back();
    if (siblings.next == siblings.branches->size()) {
      open.pop_back();
      continue;
    }
    const TBranch& branch = (*siblings.branches)[siblings.next++];
    add(branch.to, (siblings.areSeveral ? ViaText(branch.associations) : "") + Mark(branch.kind),
        branch.kind == EBranch::kHere);
  }
  return lines;
}

void DrawTree(const TWeb& web, const TTerminal& terminal, const TWriteText& write) {
  TLabels labels;
  TShortPaths shortPaths;
  const auto describe = [&](ICIMInstance& instance) {
    const TLabel label = labels.Read(instance);
    return shortPaths.For(instance) + (label.title.empty() ? "" : "  ") + label.title;
  };
  DrawTreeLines(LayOutTree(web, describe, 0, terminal), terminal, write);
}

}  // namespace NZELVYR20

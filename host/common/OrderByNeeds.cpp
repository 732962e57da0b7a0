#include "OrderByNeeds.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace NZELVYR20 {
namespace {

struct TVisit {
  std::size_t node;
  std::vector<std::size_t> needs;
  std::size_t next = 0;
  std::size_t oldest;  ///< the first turn, of those without a group, that a need led to
};

class TGrouping {
 public:
  TGrouping(std::size_t count, const TGetNeeds& getNeeds) : getNeeds_(getNeeds), turns_(count) {}

  std::vector<std::vector<std::size_t>> Run() {
    for (std::size_t start = 0; start < turns_.size(); ++start) {
      if (turns_[start] == 0) Open(start);
      while (!path_.empty()) Step();
    }
    return std::move(groups_);
  }

 private:
  static constexpr std::size_t kGrouped = std::numeric_limits<std::size_t>::max();

  void Open(std::size_t node) {
    turns_[node] = ++lastTurn_;
    ungrouped_.push_back(node);
    path_.push_back({node, getNeeds_(node), 0, lastTurn_});
  }

  void Step() {
    TVisit& visit = path_.back();
    if (visit.next == visit.needs.size()) return Close();
    const std::size_t need = visit.needs[visit.next++];
    if (turns_[need] == 0) return Open(need);
    visit.oldest = std::min(visit.oldest, turns_[need]);
  }

  /// What leads to nothing older ends a group: all that came after it and has none.
  void Close() {
    const std::size_t node = path_.back().node;
    const std::size_t oldest = path_.back().oldest;
    path_.pop_back();
    if (oldest < turns_[node]) {
      path_.back().oldest = std::min(path_.back().oldest, oldest);
      return;
    }
    auto first = ungrouped_.end();
    do {
      turns_[*--first] = kGrouped;
    } while (*first != node);
    groups_.emplace_back(first, ungrouped_.end());
    ungrouped_.erase(first, ungrouped_.end());
    std::sort(groups_.back().begin(), groups_.back().end());
  }

  const TGetNeeds& getNeeds_;
  std::vector<std::size_t> turns_;  ///< when each was met: 0 before that
  std::size_t lastTurn_ = 0;
  std::vector<TVisit> path_;
  std::vector<std::size_t> ungrouped_;  ///< in order of their turns
  std::vector<std::vector<std::size_t>> groups_;
};

}  // namespace

std::vector<std::vector<std::size_t>> GroupByNeeds(std::size_t count, const TGetNeeds& getNeeds) {
  return TGrouping(count, getNeeds).Run();
}

std::vector<std::size_t> OrderByNeeds(std::size_t count, const TGetNeeds& getNeeds) {
  std::vector<std::size_t> order;
  order.reserve(count);
  for (const auto& group : GroupByNeeds(count, getNeeds)) {
    order.insert(order.end(), group.begin(), group.end());
  }
  return order;
}

}  // namespace NZELVYR20

#include "OrderByNeeds.h"

namespace NZELVYR20 {
namespace {

struct TVisit {
  std::size_t node;
  std::vector<std::size_t> needs;
  std::size_t next = 0;
};

}  // namespace

std::vector<std::size_t> OrderByNeeds(
    std::size_t count, const std::function<std::vector<std::size_t>(std::size_t)>& getNeeds) {
  std::vector<bool> isSeen(count, false);
  std::vector<std::size_t> order;
  order.reserve(count);
  std::vector<TVisit> path;
  const auto open = [&](std::size_t node) {
    isSeen[node] = true;
    path.push_back({node, getNeeds(node)});
  };
  for (std::size_t start = 0; start < count; ++start) {
    if (!isSeen[start]) open(start);
    while (!path.empty()) {
      TVisit& visit = path.back();
      if (visit.next == visit.needs.size()) {
        order.push_back(visit.node);
        path.pop_back();
        continue;
      }
      const std::size_t need = visit.needs[visit.next++];
      if (!isSeen[need]) open(need);
    }
  }
  return order;
}

}  // namespace NZELVYR20

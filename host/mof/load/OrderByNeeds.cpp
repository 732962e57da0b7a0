#include "OrderByNeeds.h"

#include <cstdint>

namespace NZELVYR20 {
namespace {

enum class EState : std::uint8_t { kUnseen, kOpen, kDone };

struct TVisit {
  std::size_t node;
  std::vector<std::size_t> needs;
  std::size_t next = 0;
};

}  // namespace

std::vector<std::size_t> OrderByNeeds(
    std::size_t count, const std::function<std::vector<std::size_t>(std::size_t)>& getNeeds,
    const std::function<void(std::size_t from, std::size_t to)>& onCircle) {
  std::vector<EState> states(count, EState::kUnseen);
  std::vector<std::size_t> order;
  order.reserve(count);
  std::vector<TVisit> path;
  const auto open = [&](std::size_t node) {
    states[node] = EState::kOpen;
    path.push_back({node, getNeeds(node)});
  };
  for (std::size_t start = 0; start < count; ++start) {
    if (states[start] == EState::kUnseen) open(start);
    while (!path.empty()) {
      TVisit& visit = path.back();
      if (visit.next == visit.needs.size()) {
        states[visit.node] = EState::kDone;
        order.push_back(visit.node);
        path.pop_back();
        continue;
      }
      const std::size_t need = visit.needs[visit.next++];
      if (states[need] == EState::kUnseen) {
        open(need);
      } else if (states[need] == EState::kOpen) {
        onCircle(visit.node, need);
      }
    }
  }
  return order;
}

}  // namespace NZELVYR20

#include "TLinkRows.h"

#include "TDiskRow.h"

namespace NZELVYR20 {

TLinkRows::TLinkRows(std::size_t count) {
  const std::size_t ends = count / kDegree;
  for (std::size_t number = 0; number < ends; ++number) {
    names.push_back("name" + std::to_string(number));
  }
  const auto parts = MakeShuffledOrder(ends);
  for (const std::size_t number : MakeShuffledOrder(ends * kDegree)) {
    const std::size_t system = number / kDegree;
    const std::size_t step = number % kDegree * (ends / kDegree);
    links.push_back({system, parts[(system + step) % ends]});
  }
}

TLinkRows TLinkRows::MakeHub(std::size_t count) {
  TLinkRows rows;
  for (const std::size_t part : MakeShuffledOrder(count)) {
    rows.names.push_back("name" + std::to_string(rows.names.size()));
    rows.links.push_back({0, part});
  }
  return rows;
}

}  // namespace NZELVYR20

#include "TAdjacencyLinks.h"

#include <algorithm>

#include "TDiskRow.h"

namespace NZELVYR20 {

TAdjacencyLinks::TAdjacencyLinks(const TLinkRows& rows) {
  for (const std::string& name : rows.names) {
    systems_.push_back(MakePathText(kSystemKey, name));
    ends_[systems_.back()] = name;
    ends_[MakePathText(kPartKey, name)] = name;
  }
  for (const auto& row : rows.links) {
    links_.push_back({systems_[row.system], MakePathText(kPartKey, rows.names[row.part])});
    referring_[links_.back().system].push_back(&links_.back());
    referring_[links_.back().part].push_back(&links_.back());
  }
}

std::size_t TAdjacencyLinks::CountReferences(std::size_t system) const {
  std::size_t count = 0;
  for (const TLink* link : referring_.find(systems_[system])->second) {
    count += link->part.empty() ? 0 : 1;
  }
  return count;
}

std::size_t TAdjacencyLinks::CountAssociators(std::size_t system) const {
  std::size_t count = 0;
  for (const TLink* link : referring_.find(systems_[system])->second) {
    const auto end = ends_.find(link->part);
    count += end == ends_.end() || end->second.empty() ? 0 : 1;
  }
  return count;
}

std::size_t TAdjacencyLinks::ScanReferences(std::size_t system) const {
  const std::string& path = systems_[system];
  const auto refers = [&path](const TLink& link) {
    return link.system == path || link.part == path;
  };
  return static_cast<std::size_t>(std::count_if(links_.begin(), links_.end(), refers));
}

}  // namespace NZELVYR20

#include "TCompactStore.h"

#include <algorithm>

namespace NZELVYR20 {

void TCompactStore::Fill(const std::vector<TDiskRow>& rows) {
  for (const TDiskRow& row : rows) {
    TRecord& record = records_[MakeDiskPath(row)];
    VisitDisk(row,
              [&record](std::size_t position, const auto& value) { record[position] = value; });
  }
}

TCompactStore::TInstance TCompactStore::Get(const TPath& path) {
  const auto found = records_.find(path);
  return found == records_.end() ? nullptr : &found->second;
}

void TCompactStore::SetCapacity(TInstance instance, std::uint64_t capacity) {
  (*instance)[kCapacity] = capacity;
}

std::uint64_t TCompactStore::GetCapacity(const TRecord* instance) {
  return std::get<std::uint64_t>((*instance)[kCapacity]);
}

std::vector<const TCompactStore::TRecords::value_type*> TCompactStore::Sort() const {
  std::vector<const TRecords::value_type*> sorted;
  sorted.reserve(records_.size());
  for (const auto& entry : records_) sorted.push_back(&entry);
  std::sort(sorted.begin(), sorted.end(),
            [](const auto* left, const auto* right) { return left->first < right->first; });
  return sorted;
}

std::size_t TCompactStore::Count() const {
  std::size_t count = 0;
  for (const auto* entry : Sort()) count += entry->second.front().index() == 0 ? 0 : 1;
  return count;
}

std::uint64_t TCompactStore::SumCapacities() const {
  std::uint64_t sum = 0;
  for (const auto* entry : Sort()) sum += GetCapacity(&entry->second);
  return sum;
}

}  // namespace NZELVYR20

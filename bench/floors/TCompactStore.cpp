#include "TCompactStore.h"

#include <algorithm>

namespace NZELVYR20 {

void TCompactStore::Fill(const std::vector<TDiskRow>& rows) {
  sorted_.clear();
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

const TCompactStore::TSorted& TCompactStore::GetSorted() {
  if (!sorted_.empty()) return sorted_;
  sorted_.reserve(records_.size());
  for (const auto& entry : records_) sorted_.push_back(&entry);
  std::sort(sorted_.begin(), sorted_.end(),
            [](const auto* left, const auto* right) { return left->first < right->first; });
  return sorted_;
}

std::size_t TCompactStore::Count() {
  std::size_t count = 0;
  for (const auto* entry : GetSorted()) count += entry->second.front().index() == 0 ? 0 : 1;
  return count;
}

std::uint64_t TCompactStore::SumCapacities() {
  std::uint64_t sum = 0;
  for (const auto* entry : GetSorted()) sum += GetCapacity(&entry->second);
  return sum;
}

}  // namespace NZELVYR20

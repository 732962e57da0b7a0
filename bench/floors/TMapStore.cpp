#include "TMapStore.h"

namespace NZELVYR20 {

void TMapStore::Fill(const std::vector<TDiskRow>& rows) {
  for (const TDiskRow& row : rows) {
    const auto record = std::make_shared<TFloorRecord>();
    VisitDisk(row, [&record](std::size_t position, const auto& value) {
      (*record)[kDiskNames[position]] = std::make_shared<TFloorValue>(value);
    });
    records_[MakeDiskPath(row)] = record;
  }
}

TMapStore::TInstance TMapStore::Get(const TPath& path) const {
  const auto found = records_.find(path);
  return found == records_.end() ? TInstance() : found->second;
}

void TMapStore::SetCapacity(const TInstance& instance, std::uint64_t capacity) {
  *instance->find(kDiskNames[kCapacity])->second = capacity;
}

std::uint64_t TMapStore::GetCapacity(const TInstance& instance) {
  return std::get<std::uint64_t>(*instance->find(kDiskNames[kCapacity])->second);
}

std::size_t TMapStore::Count() const {
  std::size_t count = 0;
  for (const auto& [path, record] : records_) count += record->empty() ? 0 : 1;
  return count;
}

std::uint64_t TMapStore::SumCapacities() const {
  std::uint64_t sum = 0;
  for (const auto& [path, record] : records_) sum += GetCapacity(record);
  return sum;
}

}  // namespace NZELVYR20

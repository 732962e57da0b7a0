#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "TDiskRow.h"
#include "TFloorRecord.h"

namespace NZELVYR20 {

/// The floor "compact": a hash table of path texts to records with a slot for each property. A walk
/// in path order sorts the entries first. The operations are those of TMapStore.
class TCompactStore {
 public:
  using TRecord = std::array<TFloorValue, kDiskProperties>;
  using TPath = std::string;
  using TInstance = TRecord*;

  void Fill(const std::vector<TDiskRow>& rows);

  static TPath MakePath(const TDiskRow& row) { return MakeDiskPath(row); }
  TInstance Get(const TPath& path);

  static void SetCapacity(TInstance instance, std::uint64_t capacity);
  static std::uint64_t GetCapacity(const TRecord* instance);

  std::size_t Count() const;
  std::uint64_t SumCapacities() const;

 private:
  using TRecords = std::unordered_map<std::string, TRecord>;

  std::vector<const TRecords::value_type*> Sort() const;

  TRecords records_;
};

}  // namespace NZELVYR20

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

/// The floor "compact": a hash table of path texts to records with a slot for each property, and
/// the entries in path order. These are sorted by the first walk after a change, so that neither
/// adding nor a later walk pays for it. The operations are those of TMapStore.
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

  std::size_t Count();
  std::uint64_t SumCapacities();

 private:
  using TRecords = std::unordered_map<std::string, TRecord>;

  using TSorted = std::vector<const TRecords::value_type*>;

  const TSorted& GetSorted();

  TRecords records_;
  TSorted sorted_;  ///< empty after a change
};

}  // namespace NZELVYR20

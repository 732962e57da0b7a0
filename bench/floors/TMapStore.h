#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "TDiskRow.h"
#include "TFloorRecord.h"

namespace NZELVYR20 {

/// The floor "map of maps": path texts to shared records of shared values.
///
/// Every store of disks has these operations, so that one template measures them all.
class TMapStore {
 public:
  using TPath = std::string;
  using TInstance = std::shared_ptr<TFloorRecord>;

  /// Makes, fills and adds one instance for each row.
  void Fill(const std::vector<TDiskRow>& rows);

  /// The path by which a row's instance is asked for.
  static TPath MakePath(const TDiskRow& row) { return MakeDiskPath(row); }
  TInstance Get(const TPath& path) const;

  static void SetCapacity(const TInstance& instance, std::uint64_t capacity);
  static std::uint64_t GetCapacity(const TInstance& instance);

  /// Walk all instances in path order: how many they are; the sum of their capacities.
  std::size_t Count() const;
  std::uint64_t SumCapacities() const;

 private:
  std::map<std::string, std::shared_ptr<TFloorRecord>> records_;
};

}  // namespace NZELVYR20

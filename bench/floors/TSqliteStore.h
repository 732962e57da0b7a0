#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "TDiskRow.h"
#include "TSqlite.h"

namespace NZELVYR20 {

/// The floor "SQLite": one table with the path as its primary key and a column for each property.
/// The operations are those of TMapStore. There is no instance at hand: its path stands for it, and
/// a property costs a look-up.
class TSqliteStore {
 public:
  using TPath = std::string;
  using TInstance = const std::string*;  ///< null for none

  TSqliteStore();

  void Fill(const std::vector<TDiskRow>& rows);

  static TPath MakePath(const TDiskRow& row) { return MakeDiskPath(row); }
  /// Finds the row and reads one number of it.
  TInstance Get(const TPath& path);

  void SetCapacity(TInstance instance, std::uint64_t capacity);
  std::uint64_t GetCapacity(TInstance instance);

  std::size_t Count();
  std::uint64_t SumCapacities();

 private:
  TSqlite database_;
  TSqliteStatement insert_;
  TSqliteStatement get_;
  TSqliteStatement set_;
  TSqliteStatement walk_;
};

}  // namespace NZELVYR20

#include "TSqliteStore.h"

namespace NZELVYR20 {

TSqliteStore::TSqliteStore()
    : database_(
          "CREATE TABLE Disk (Path TEXT PRIMARY KEY, DeviceID TEXT, ElementName TEXT,"
          " SystemName TEXT, Model TEXT, SerialNumber TEXT, Capacity INTEGER, BlockSize INTEGER,"
          " NumberOfBlocks INTEGER, EnabledState INTEGER, Availability INTEGER,"
          " IsRemovable INTEGER) WITHOUT ROWID"),
      insert_(
          database_.Prepare("INSERT INTO Disk VALUES (?1,?2,?3,?4,?5,?6,?7,?8,?9,?10,?11,?12)")),
      get_(database_.Prepare("SELECT Capacity FROM Disk WHERE Path = ?1")),
      set_(database_.Prepare("UPDATE Disk SET Capacity = ?2 WHERE Path = ?1")),
      walk_(database_.Prepare("SELECT Capacity FROM Disk ORDER BY Path")) {}

void TSqliteStore::Fill(const std::vector<TDiskRow>& rows) {
  database_.Execute("BEGIN");
  for (const TDiskRow& row : rows) {
    const std::string path = MakeDiskPath(row);
    insert_.Bind(1, path);
    VisitDisk(row, [this](std::size_t position, const auto& value) {
      insert_.Bind(static_cast<int>(position) + 2, value);
    });
    insert_.Run();
  }
  database_.Execute("COMMIT");
}

TSqliteStore::TInstance TSqliteStore::Get(const TPath& path) {
  return GetCapacity(&path) == 0 ? nullptr : &path;
}

void TSqliteStore::SetCapacity(TInstance instance, std::uint64_t capacity) {
  set_.Bind(1, *instance).Bind(2, capacity).Run();
}

std::uint64_t TSqliteStore::GetCapacity(TInstance instance) {
  const bool isFound = get_.Bind(1, *instance).Step();
  const std::uint64_t capacity = isFound ? get_.GetNumber(0) : 0;
  get_.Reset();
  return capacity;
}

std::size_t TSqliteStore::Count() {
  std::size_t count = 0;
  while (walk_.Step()) ++count;
  return count;
}

std::uint64_t TSqliteStore::SumCapacities() {
  std::uint64_t sum = 0;
  while (walk_.Step()) sum += walk_.GetNumber(0);
  return sum;
}

}  // namespace NZELVYR20

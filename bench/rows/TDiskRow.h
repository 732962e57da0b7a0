#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// What a collector knows of one disk: the values of one instance.
struct TDiskRow {
  std::string deviceId;
  std::string elementName;
  std::string systemName;
  std::string model;
  std::string serialNumber;
  std::uint64_t capacity = 0;
  std::uint64_t blockSize = 0;
  std::uint64_t numberOfBlocks = 0;
  std::uint16_t enabledState = 0;
  std::uint16_t availability = 0;
  bool isRemovable = false;
};

constexpr std::size_t kDiskProperties = 11;

/// The key is the first; kCapacity the one that is read and set alone.
inline const std::array<std::string, kDiskProperties> kDiskNames = {
    "DeviceID",  "ElementName",    "SystemName",   "Model",        "SerialNumber", "Capacity",
    "BlockSize", "NumberOfBlocks", "EnabledState", "Availability", "IsRemovable"};
constexpr std::size_t kCapacity = 5;

/// Calls `visit(position, value)` for every property, in the order of kDiskNames.
template <class TVisit>
void VisitDisk(const TDiskRow& row, TVisit visit) {
  visit(0, row.deviceId);
  visit(1, row.elementName);
  visit(2, row.systemName);
  visit(3, row.model);
  visit(4, row.serialNumber);
  visit(kCapacity, row.capacity);
  visit(6, row.blockSize);
  visit(7, row.numberOfBlocks);
  visit(8, row.enabledState);
  visit(9, row.availability);
  visit(10, row.isRemovable);
}

/// Rows with different keys, in an order that has nothing to do with them, the same in every run.
std::vector<TDiskRow> MakeDiskRows(std::size_t count);

/// The canonical path of a class's instance with one string key that needs no escapes.
std::string MakePathText(const char* classAndKey, const std::string& value);
std::string MakeDiskPath(const TDiskRow& row);

/// The numbers below `count`, shuffled; the same in every run.
std::vector<std::size_t> MakeShuffledOrder(std::size_t count);

}  // namespace NZELVYR20

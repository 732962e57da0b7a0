#include "TDiskRow.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace NZELVYR20 {
namespace {

constexpr unsigned kSeed = 20;
constexpr std::uint64_t kMega = 1000000;

/// Numbers of one length sort as texts do.
std::string Numbered(const char* prefix, std::size_t number) {
  constexpr std::size_t kDigits = 7;
  const std::string digits = std::to_string(number);
  return prefix + std::string(kDigits - std::min(kDigits, digits.size()), '0') + digits;
}

TDiskRow MakeDiskRow(std::size_t number) {
  TDiskRow row;
  row.deviceId = Numbered("disk", number);
  row.elementName = Numbered("Disk ", number);
  row.systemName = "storage.example";
  row.model = "Model with a name of " + std::to_string(number % 100);
  row.serialNumber = Numbered("SN-2024-", number);
  row.capacity = (number + 1) * kMega;
  row.blockSize = 512;
  row.numberOfBlocks = row.capacity / row.blockSize;
  row.enabledState = static_cast<std::uint16_t>(2 + number % 4);
  row.availability = 3;
  row.isRemovable = number % 2 == 0;
  return row;
}

}  // namespace

std::vector<std::size_t> MakeShuffledOrder(std::size_t count) {
  std::vector<std::size_t> order(count);
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::mt19937_64 random(kSeed);
  std::shuffle(order.begin(), order.end(), random);
  return order;
}

std::vector<TDiskRow> MakeDiskRows(std::size_t count) {
  std::vector<TDiskRow> rows;
  rows.reserve(count);
  for (const std::size_t number : MakeShuffledOrder(count)) rows.push_back(MakeDiskRow(number));
  return rows;
}

std::string MakePathText(const char* classAndKey, const std::string& value) {
  return classAndKey + ("=\"" + value + '"');
}

std::string MakeDiskPath(const TDiskRow& row) {
  return MakePathText("Bench_Disk.deviceid", row.deviceId);
}

}  // namespace NZELVYR20

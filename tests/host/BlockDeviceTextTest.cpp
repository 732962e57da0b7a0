#include "BlockDeviceText.h"

#include <gtest/gtest.h>

namespace NZELVYR20 {
namespace {

using TNumber = std::optional<std::uint64_t>;

TEST(BlockDeviceText, SizesAndNames) {
  const struct {
    const char* description = nullptr;
    const char* sectors = nullptr;
    const char* blockSize = nullptr;
    TNumber size;  ///< of a block
    TNumber blocks;
  } rows[] = {
      {"usual blocks", "2048", "512", 512, 2048}, {"large blocks", "2048", "4096", 4096, 256},
      {"block size missing", "8", "", 512, 8},    {"block size of nonsense", "8", "0", 512, 8},
      {"no medium", "0", "512", {}, {}},          {"too large", "36028797018963968", "512", {}, {}},
      {"unreadable", "", "512", {}, {}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    const std::optional<TExtentSize> extent = ParseExtentSize(row.sectors, row.blockSize);
    EXPECT_EQ(row.size, extent ? TNumber(extent->blockSize) : TNumber());
    EXPECT_EQ(row.blocks, extent ? TNumber(extent->blocks) : TNumber());
  }
  EXPECT_EQ("/dev/cciss/c0d0", GetDeviceFile("cciss!c0d0"));
  EXPECT_EQ("mapper!vg-root", GetDeviceName("/dev/mapper/vg-root"));
  EXPECT_EQ("", GetDeviceName("host:/export"));
}

}  // namespace
}  // namespace NZELVYR20

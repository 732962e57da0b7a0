#include "ArmNames.h"

#include <algorithm>
#include <array>

namespace NZELVYR20 {
namespace {

struct TNameRow {
  std::uint32_t number;  ///< of a part: with that of its implementer above it
  std::string_view name;
};

constexpr std::uint32_t Part(std::uint32_t implementer, std::uint32_t part) {
  return implementer << 12U | part;
}

constexpr std::array<TNameRow, 17> kImplementers = {{{0x41, "ARM"},
                                                     {0x42, "Broadcom"},
                                                     {0x43, "Cavium"},
                                                     {0x44, "DEC"},
                                                     {0x46, "Fujitsu"},
                                                     {0x48, "HiSilicon"},
                                                     {0x49, "Infineon"},
                                                     {0x4d, "Motorola"},
                                                     {0x4e, "NVIDIA"},
                                                     {0x50, "Applied Micro"},
                                                     {0x51, "Qualcomm"},
                                                     {0x53, "Samsung"},
                                                     {0x56, "Marvell"},
                                                     {0x61, "Apple"},
                                                     {0x69, "Intel"},
                                                     {0x70, "Phytium"},
                                                     {0xc0, "Ampere"}}};

constexpr std::array<TNameRow, 57> kParts = {{
    {Part(0x41, 0x926), "ARM926EJ-S"},   {Part(0x41, 0xb36), "ARM1136"},
    {Part(0x41, 0xb56), "ARM1156"},      {Part(0x41, 0xb76), "ARM1176"},
    {Part(0x41, 0xc05), "Cortex-A5"},    {Part(0x41, 0xc07), "Cortex-A7"},
    {Part(0x41, 0xc08), "Cortex-A8"},    {Part(0x41, 0xc09), "Cortex-A9"},
    {Part(0x41, 0xc0d), "Cortex-A17"},   {Part(0x41, 0xc0e), "Cortex-A17"},
    {Part(0x41, 0xc0f), "Cortex-A15"},   {Part(0x41, 0xd01), "Cortex-A32"},
    {Part(0x41, 0xd02), "Cortex-A34"},   {Part(0x41, 0xd03), "Cortex-A53"},
    {Part(0x41, 0xd04), "Cortex-A35"},   {Part(0x41, 0xd05), "Cortex-A55"},
    {Part(0x41, 0xd06), "Cortex-A65"},   {Part(0x41, 0xd07), "Cortex-A57"},
    {Part(0x41, 0xd08), "Cortex-A72"},   {Part(0x41, 0xd09), "Cortex-A73"},
    {Part(0x41, 0xd0a), "Cortex-A75"},   {Part(0x41, 0xd0b), "Cortex-A76"},
    {Part(0x41, 0xd0c), "Neoverse-N1"},  {Part(0x41, 0xd0d), "Cortex-A77"},
    {Part(0x41, 0xd0e), "Cortex-A76AE"}, {Part(0x41, 0xd40), "Neoverse-V1"},
    {Part(0x41, 0xd41), "Cortex-A78"},   {Part(0x41, 0xd42), "Cortex-A78AE"},
    {Part(0x41, 0xd44), "Cortex-X1"},    {Part(0x41, 0xd46), "Cortex-A510"},
    {Part(0x41, 0xd47), "Cortex-A710"},  {Part(0x41, 0xd48), "Cortex-X2"},
    {Part(0x41, 0xd49), "Neoverse-N2"},  {Part(0x41, 0xd4a), "Neoverse-E1"},
    {Part(0x41, 0xd4b), "Cortex-A78C"},  {Part(0x41, 0xd4c), "Cortex-X1C"},
    {Part(0x41, 0xd4d), "Cortex-A715"},  {Part(0x41, 0xd4e), "Cortex-X3"},
    {Part(0x41, 0xd4f), "Neoverse-V2"},  {Part(0x41, 0xd80), "Cortex-A520"},
    {Part(0x41, 0xd81), "Cortex-A720"},  {Part(0x41, 0xd82), "Cortex-X4"},
    {Part(0x41, 0xd84), "Neoverse-V3"},  {Part(0x41, 0xd85), "Cortex-X925"},
    {Part(0x41, 0xd87), "Cortex-A725"},  {Part(0x41, 0xd8e), "Neoverse-N3"},
    {Part(0x42, 0x516), "ThunderX2"},    {Part(0x43, 0x0a1), "ThunderX 88XX"},
    {Part(0x43, 0x0af), "ThunderX2"},    {Part(0x46, 0x001), "A64FX"},
    {Part(0x48, 0xd01), "TaiShan v110"}, {Part(0x4e, 0x003), "Denver 2"},
    {Part(0x4e, 0x004), "Carmel"},       {Part(0x50, 0x000), "X-Gene"},
    {Part(0x51, 0xc00), "Falkor"},       {Part(0x56, 0x581), "PJ4"},
    {Part(0xc0, 0xac3), "Ampere-1"},
}};

template <std::size_t count>
std::string_view FindName(const std::array<TNameRow, count>& rows, std::uint64_t number) {
  const auto* found = std::find_if(rows.begin(), rows.end(),
                                   [number](const TNameRow& row) { return row.number == number; });
  return found == rows.end() ? std::string_view() : found->name;
}

}  // namespace

std::string_view FindArmImplementer(std::uint64_t implementer) {
  return FindName(kImplementers, implementer);
}

std::string_view FindArmPart(std::uint64_t implementer, std::uint64_t part) {
  constexpr unsigned kBits = 12;
  const bool fits = implementer >> kBits == 0 && part >> kBits == 0;
  return fits ? FindName(kParts, implementer << kBits | part) : std::string_view();
}

}  // namespace NZELVYR20

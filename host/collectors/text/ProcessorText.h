#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// What /proc/cpuinfo tells about one logical processor.
struct TLogicalProcessor {
  std::uint32_t index = 0;
  std::string vendor;
  std::string modelName;
  std::string stepping;
  std::string isa;  ///< of RISC-V
  std::string microcode;
  std::string flags;     ///< words of what it is able to do, of x86
  std::string features;  ///< the same of others
  std::optional<std::uint32_t> package;
  std::optional<std::uint32_t> core;  ///< within the package, or within a cluster of it
  std::optional<std::uint32_t> megaHertz;
  std::optional<std::uint16_t> addressBits;
  std::optional<std::uint32_t> armArchitecture;
  std::optional<std::uint64_t> armImplementer;
  std::optional<std::uint64_t> armPart;
  std::optional<std::uint64_t> armVariant;
};

/// What /proc/cpuinfo lists one by one, and what it says outside of that for all of them.
struct TProcessorList {
  std::vector<TLogicalProcessor> processors;
  TLogicalProcessor shared;
};

/// Reads the records of x86, ARM, POWER, RISC-V, LoongArch and s390x; other machines yield what has
/// the same names. What stands outside of the records, as on older ARM, holds for each.
TProcessorList ParseProcessors(std::string_view text);

/// Whether any of the processors has that word among its flags.
bool HasProcessorFlag(std::string_view text, std::string_view flag);

/// The standard's Family: one of its own numbers for what it lists, 1 (other) for what it does
/// not, 2 (unknown) where nothing tells.
std::uint16_t FindProcessorFamily(const TLogicalProcessor& processor);

/// A size such as "48K", in bytes.
std::optional<std::uint64_t> ParseCacheSize(std::string_view text);

/// The numbers of a list such as "2-3,8"; none where it is malformed, or longer than any machine's.
std::vector<std::uint32_t> ParseList(std::string_view text);

/// The standard's numbers for the level, the type and the associativity of a cache.
std::uint16_t ParseCacheLevel(std::string_view text);
std::uint16_t ParseCacheType(std::string_view text);
std::uint16_t ParseAssociativity(std::string_view text);

}  // namespace NZELVYR20

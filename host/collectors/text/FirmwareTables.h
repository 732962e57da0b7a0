#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// A memory module as firmware describes it; what it leaves open is empty.
struct TMemoryModule {
  std::string locator;  ///< what is printed beside its socket, such as "DIMM_A1"
  std::string bank;
  std::string manufacturer;
  std::string serialNumber;
  std::string partNumber;
  std::optional<std::uint64_t> capacity;      ///< in bytes
  std::uint16_t formFactor = 0;               ///< the standard's FormFactor
  std::uint16_t memoryType = 0;               ///< the standard's MemoryType
  std::string otherType;                      ///< in words, where that is 1 (other)
  std::optional<std::uint32_t> highestSpeed;  ///< in MHz, or million transfers a second
  std::optional<std::uint32_t> presentSpeed;
  std::optional<std::uint16_t> totalWidth;  ///< in bits, with those for checking
  std::optional<std::uint16_t> dataWidth;
};

/// The modules in the tables that firmware leaves in memory, in their order, each at the number of
/// its socket; nothing for an empty socket. What is broken off ends the list.
std::vector<std::optional<TMemoryModule>> ParseMemoryModules(std::string_view tables);

}  // namespace NZELVYR20

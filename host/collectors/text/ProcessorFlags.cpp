#include "ProcessorFlags.h"

#include <algorithm>
#include <array>
#include <utility>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

using TExtension = std::pair<std::string_view, std::string_view>;

/// In the order in which they are shown.
constexpr std::array<TExtension, 22> kExtensions = {
    {{"sse4_2", "SSE4.2"},   {"avx", "AVX"},      {"fma", "FMA"},        {"avx2", "AVX2"},
     {"avx512f", "AVX-512"}, {"amx_tile", "AMX"}, {"neon", "NEON"},      {"asimd", "ASIMD"},
     {"sve", "SVE"},         {"sve2", "SVE2"},    {"lsx", "LSX"},        {"lasx", "LASX"},
     {"vx", "VX"},           {"atomics", "LSE"},  {"crc32", "CRC-32"},   {"aes", "AES"},
     {"sha_ni", "SHA"},      {"sha2", "SHA-2"},   {"sha512", "SHA-512"}, {"rdrand", "RDRAND"},
     {"rng", "RNG"},         {"sgx", "SGX"}}};

}  // namespace

bool HasFlag(std::string_view flags, std::string_view flag) {
  static constexpr std::string_view kBlanks = " \t";
  const auto isEdge = [flags](std::size_t place) {
    return place >= flags.size() || kBlanks.find(flags[place]) != std::string_view::npos;
  };
  for (std::size_t at = 0; (at = flags.find(flag, at)) != std::string_view::npos; ++at) {
    if ((at == 0 || isEdge(at - 1)) && isEdge(at + flag.size())) return true;
  }
  return false;
}

std::string FindVirtualization(std::string_view flags) {
  if (HasFlag(flags, "vmx")) return "VT-x";
  return HasFlag(flags, "svm") ? "AMD-V" : "";
}

std::string ListExtensions(std::string_view flags) {
  const std::vector<std::string_view> words = SplitWords(flags);
  std::string names;
  for (const auto& [flag, name] : kExtensions) {
    if (std::find(words.begin(), words.end(), flag) == words.end()) continue;
    names.append(names.empty() ? "" : " ").append(name);
  }
  return names;
}

std::vector<unsigned> FindCharacteristics(std::string_view flags) {
  static constexpr std::array<std::pair<std::string_view, unsigned>, 6> kCodes = {
      {{"lm", 2}, {"vmx", 4}, {"svm", 4}, {"nx", 6}, {"cpb", 8}, {"ida", 8}}};
  std::vector<unsigned> codes;
  if (flags.empty()) return codes;
  codes.push_back(3);
  for (const auto& [flag, code] : kCodes) {
    if (HasFlag(flags, flag)) codes.push_back(code);
  }
  std::sort(codes.begin(), codes.end());
  return codes;
}

}  // namespace NZELVYR20

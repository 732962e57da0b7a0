#include "ProcessorText.h"

#include <algorithm>
#include <array>
#include <utility>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

using TCodeName = std::pair<std::string_view, std::uint16_t>;

template <std::size_t count>
std::uint16_t FindCode(const std::array<TCodeName, count>& codes, std::string_view text,
                       std::uint16_t otherwise) {
  const auto* found = std::find_if(codes.begin(), codes.end(),
                                   [text](const TCodeName& code) { return code.first == text; });
  return found == codes.end() ? otherwise : found->second;
}

/// "2600.002" and "3800.000000MHz" alike.
std::optional<std::uint32_t> ParseMegaHertz(std::string_view text) {
  return ParseNumber<std::uint32_t>(text.substr(0, text.find_first_not_of("0123456789")));
}

std::uint16_t FindAddressBitsByFlags(std::string_view flags) {
  const std::vector<std::string_view> words = SplitWords(flags);
  return std::find(words.begin(), words.end(), "lm") == words.end() ? 32 : 64;
}

void SetArmArchitecture(TLogicalProcessor& processor, std::string_view text) {
  if (text == "AArch64") text = "8";
  // Old kernels write "5TEJ" and the like.
  text = text.substr(0, text.find_first_not_of("0123456789"));
  processor.armArchitecture = ParseNumber<std::uint32_t>(text);
  if (processor.armArchitecture) processor.addressBits = *processor.armArchitecture < 8 ? 32 : 64;
}

void SetField(TLogicalProcessor& processor, const TField& field) {
  const std::string_view name = field.name;
  const std::string_view value = field.value;
  if (name == "vendor_id") processor.vendor = value;
  // "Processor" is the name on ARM before Linux 3.8, "cpu" on POWER.
  if (name == "model name" || name == "Processor" || name == "cpu") processor.modelName = value;
  if (name == "stepping" || name == "CPU revision") processor.stepping = value;
  if (name == "physical id") processor.package = ParseNumber<std::uint32_t>(value);
  if (name == "core id") processor.core = ParseNumber<std::uint32_t>(value);
  if (name == "cpu MHz" || name == "clock") processor.megaHertz = ParseMegaHertz(value);
  if (name == "flags") processor.addressBits = FindAddressBitsByFlags(value);
  if (name == "isa") processor.addressBits = value.substr(0, 4) == "rv64" ? 64 : 32;
  if (name == "CPU architecture") SetArmArchitecture(processor, value);
}

void TakeOverWhatIsMissing(TLogicalProcessor& processor, const TLogicalProcessor& shared) {
  if (processor.vendor.empty()) processor.vendor = shared.vendor;
  if (processor.modelName.empty()) processor.modelName = shared.modelName;
  if (processor.stepping.empty()) processor.stepping = shared.stepping;
  if (!processor.megaHertz) processor.megaHertz = shared.megaHertz;
  if (!processor.addressBits) processor.addressBits = shared.addressBits;
  if (!processor.armArchitecture) processor.armArchitecture = shared.armArchitecture;
}

}  // namespace

std::vector<TLogicalProcessor> ParseProcessors(std::string_view text) {
  std::vector<TLogicalProcessor> processors;
  TLogicalProcessor shared;
  bool isInRecord = false;
  for (const std::string_view line : SplitLines(text)) {
    if (Trim(line).empty()) isInRecord = false;
    const std::optional<TField> field = SplitField(line, ':');
    if (!field) continue;
    if (field->name == "processor") {
      const std::optional<std::uint32_t> index = ParseNumber<std::uint32_t>(field->value);
      isInRecord = index.has_value();
      if (isInRecord) processors.emplace_back().index = *index;
      continue;
    }
    SetField(isInRecord ? processors.back() : shared, *field);
  }
  if (processors.empty() && !(shared.modelName.empty() && shared.vendor.empty()))
    processors.emplace_back();
  for (TLogicalProcessor& processor : processors) TakeOverWhatIsMissing(processor, shared);
  return processors;
}

std::uint16_t FindProcessorFamily(const TLogicalProcessor& processor) {
  static constexpr std::array<TCodeName, 5> kFamilies = {{{"Xeon", 179},
                                                          {"Opteron", 132},
                                                          {"Core(TM) i7", 198},
                                                          {"Core(TM) i5", 205},
                                                          {"Core(TM) i3", 206}}};
  for (const auto& [word, code] : kFamilies)
    if (processor.modelName.find(word) != std::string::npos) return code;
  if (processor.armArchitecture == 7U) return 256;
  if (processor.armArchitecture == 8U) return 257;
  return processor.modelName.empty() ? 2 : 1;
}

std::optional<std::uint64_t> ParseCacheSize(std::string_view text) {
  text = Trim(text);
  constexpr std::string_view kUnits = "KMG";
  const std::size_t unit = text.empty() ? std::string_view::npos : kUnits.find(text.back());
  if (unit == std::string_view::npos) return ParseUnsigned(text);
  text.remove_suffix(1);
  return Multiply(ParseUnsigned(text), std::uint64_t{1} << (10 * (unit + 1)));
}

std::optional<std::uint32_t> ParseFirstOfList(std::string_view text) {
  return ParseNumber<std::uint32_t>(text.substr(0, text.find_first_of("-,")));
}

std::uint16_t ParseCacheLevel(std::string_view text) {
  static constexpr std::array<TCodeName, 4> kLevels = {{{"", 0}, {"1", 2}, {"2", 3}, {"3", 4}}};
  return FindCode(kLevels, text, 1);
}

std::uint16_t ParseCacheType(std::string_view text) {
  static constexpr std::array<TCodeName, 4> kTypes = {
      {{"", 0}, {"Instruction", 2}, {"Data", 3}, {"Unified", 4}}};
  return FindCode(kTypes, text, 1);
}

std::uint16_t ParseAssociativity(std::string_view text) {
  // The kernel writes 0 for "fully associative".
  static constexpr std::array<TCodeName, 7> kWays = {
      {{"", 0}, {"0", 5}, {"1", 2}, {"2", 3}, {"4", 4}, {"8", 6}, {"16", 7}}};
  return FindCode(kWays, text, 1);
}

}  // namespace NZELVYR20

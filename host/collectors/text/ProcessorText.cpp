#include "ProcessorText.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <iomanip>
#include <map>
#include <sstream>
#include <utility>

#include "ArmNames.h"
#include "ProcessorFlags.h"
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

void SetArmArchitecture(TLogicalProcessor& processor, std::string_view text) {
  if (text == "AArch64") text = "8";
  // Old kernels write "5TEJ" and the like.
  text = text.substr(0, text.find_first_not_of("0123456789"));
  processor.armArchitecture = ParseNumber<std::uint32_t>(text);
  if (processor.armArchitecture) processor.addressBits = *processor.armArchitecture < 8 ? 32 : 64;
}

/// "0xd08" as these lines have it.
std::optional<std::uint64_t> ParseHexadecimal(std::string_view text) {
  constexpr int kBase = 16;
  return text.substr(0, 2) == "0x" ? ParseUnsigned(text.substr(2), kBase) : std::nullopt;
}

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

void SetName(TLogicalProcessor& processor, std::string_view name, std::string_view value) {
  if (IsOneOf(name, {"vendor_id", "vendor"})) processor.vendor = value;
  // "Processor" is the name on ARM before Linux 3.8, "cpu" on POWER.
  if (IsOneOf(name, {"model name", "Model Name", "Processor", "cpu", "cpu model"})) {
    processor.modelName = value;
  }
  if (name == "uarch" && processor.modelName.empty()) processor.modelName = value;
  if (name == "stepping") processor.stepping = value;
}

/// ARM's own name, such as "r1p3".
std::string NameStepping(const std::optional<std::uint64_t>& variant, std::string_view revision) {
  const std::string number(revision);
  return variant ? 'r' + std::to_string(*variant) + 'p' + number : number;
}

void SetField(TLogicalProcessor& processor, const TField& field) {
  const std::string_view name = field.name;
  const std::string_view value = field.value;
  SetName(processor, name, value);
  if (IsOneOf(name, {"physical id", "package"})) {
    processor.package = ParseNumber<std::uint32_t>(value);
  }
  if (IsOneOf(name, {"core id", "core"})) processor.core = ParseNumber<std::uint32_t>(value);
  if (IsOneOf(name, {"cpu MHz", "CPU MHz", "cpu MHz dynamic", "clock"})) {
    processor.megaHertz = ParseMegaHertz(value);
  }
  if (name == "flags") {
    processor.addressBits = HasFlag(value, "lm") ? 64 : 32;
    processor.flags = value;
  }
  if (IsOneOf(name, {"Features", "features"})) processor.features = value;
  // On s390x.
  if (name == "features" && HasFlag(value, "zarch")) processor.addressBits = 64;
  if (name == "microcode") processor.microcode = value;
  if (name == "isa") {
    processor.isa = value;
    processor.addressBits = value.substr(0, 4) == "rv64" ? 64 : 32;
  }
  if (name == "CPU architecture") SetArmArchitecture(processor, value);
  if (name == "CPU implementer") processor.armImplementer = ParseHexadecimal(value);
  if (name == "CPU part") processor.armPart = ParseHexadecimal(value);
  if (name == "CPU variant") processor.armVariant = ParseHexadecimal(value);
  if (name == "CPU revision") processor.stepping = NameStepping(processor.armVariant, value);
}

/// The number in "processor : 5", and on s390x in "processor 5: version = FF" and "cpu number : 5";
/// nothing where the line begins no record.
std::optional<std::string_view> FindRecordNumber(const TField& field) {
  constexpr std::string_view kNumbered = "processor ";
  if (IsOneOf(field.name, {"processor", "cpu number"})) return field.value;
  const bool isNumbered = field.name.substr(0, kNumbered.size()) == kNumbered;
  return isNumbered ? std::make_optional(field.name.substr(kNumbered.size())) : std::nullopt;
}

/// The rest of such a line on s390x: "version = FF,  identification = 0133E8,  machine = 2964".
void SetNumberedFields(TLogicalProcessor& processor, std::string_view text) {
  for (std::optional<TField> head = SplitField(text, ','); !text.empty();
       head = SplitField(text, ',')) {
    const std::optional<TField> field = SplitField(head ? head->name : text, '=');
    if (field && field->name == "machine") {
      processor.modelName = "machine type " + std::string(field->value);
    }
    text = head ? head->value : std::string_view();
  }
}

/// "ARM part 0xd99", for a part that has no name here.
std::string NumberArmPart(std::string_view implementer, std::uint64_t part) {
  constexpr int kDigits = 3;
  std::ostringstream name;
  name << implementer << " part 0x" << std::hex << std::setfill('0') << std::setw(kDigits) << part;
  return name.str();
}

/// ARM's numbers as names; these say more than "ARMv8 Processor rev 4".
void NameArm(TLogicalProcessor& processor) {
  if (!processor.armImplementer) return;
  const std::string_view vendor = FindArmImplementer(*processor.armImplementer);
  if (processor.vendor.empty()) processor.vendor = vendor;
  if (vendor.empty() || !processor.armPart) return;
  const std::string_view part = FindArmPart(*processor.armImplementer, *processor.armPart);
  processor.modelName = part.empty() ? NumberArmPart(vendor, *processor.armPart) : part;
}

void TakeOverWhatIsMissing(TLogicalProcessor& processor, const TLogicalProcessor& shared) {
  if (processor.features.empty()) processor.features = shared.features;
  if (processor.vendor.empty()) processor.vendor = shared.vendor;
  if (processor.modelName.empty()) processor.modelName = shared.modelName;
  if (processor.stepping.empty()) processor.stepping = shared.stepping;
  if (processor.isa.empty()) processor.isa = shared.isa;
  if (!processor.megaHertz) processor.megaHertz = shared.megaHertz;
  if (!processor.addressBits) processor.addressBits = shared.addressBits;
  if (!processor.armArchitecture) processor.armArchitecture = shared.armArchitecture;
  if (!processor.armImplementer) processor.armImplementer = shared.armImplementer;
  if (!processor.armPart) processor.armPart = shared.armPart;
}

}  // namespace

TProcessorList ParseProcessors(std::string_view text) {
  TProcessorList list;
  std::map<std::uint32_t, std::size_t> places;  // on s390x each processor has two records
  TLogicalProcessor* current = &list.shared;
  for (const std::string_view line : SplitLines(text)) {
    if (Trim(line).empty()) current = &list.shared;
    const std::optional<TField> field = SplitField(line, ':');
    if (!field) continue;
    const std::optional<std::string_view> number = FindRecordNumber(*field);
    if (!number) {
      SetField(*current, *field);
      continue;
    }
    const std::optional<std::uint32_t> index = ParseNumber<std::uint32_t>(*number);
    current = &list.shared;
    if (!index) continue;
    if (places.emplace(*index, list.processors.size()).second) {
      list.processors.emplace_back().index = *index;
    }
    current = &list.processors[places[*index]];
    SetNumberedFields(*current, field->value);
  }
  for (TLogicalProcessor& processor : list.processors) {
    TakeOverWhatIsMissing(processor, list.shared);
    NameArm(processor);
  }
  NameArm(list.shared);
  return list;
}

bool HasProcessorFlag(std::string_view text, std::string_view flag) {
  for (const std::string_view line : SplitLines(text)) {
    const std::optional<TField> field = SplitField(line, ':');
    if (field && field->name == "flags") return HasFlag(field->value, flag);
  }
  return false;
}

std::uint16_t FindProcessorFamily(const TLogicalProcessor& processor) {
  // The first that fits counts.
  static constexpr std::array<TCodeName, 40> kFamilies = {{{"Xeon", 179},
                                                           {"Core(TM) i7", 198},
                                                           {"Core(TM) i5", 205},
                                                           {"Core(TM) i3", 206},
                                                           {"Core(TM) m3", 45},
                                                           {"Core(TM) m5", 46},
                                                           {"Core(TM) m7", 47},
                                                           {"Core(TM) M", 44},
                                                           {"Core(TM)2 Duo", 191},
                                                           {"Core(TM)2 Quad", 194},
                                                           {"Atom", 43},
                                                           {"Celeron", 15},
                                                           {"Pentium(R) 4", 178},
                                                           {"Pentium(R) M", 185},
                                                           {"Pentium(R) D", 187},
                                                           {"Pentium(R) III", 17},
                                                           {"Pentium(R) II", 13},
                                                           {"Pentium", 11},
                                                           {"Itanium", 130},
                                                           {"EPYC", 107},
                                                           {"Ryzen", 107},
                                                           {"Opteron", 132},
                                                           {"Phenom(tm) II", 236},
                                                           {"Athlon(tm) II", 237},
                                                           {"Athlon(tm) 64", 131},
                                                           {"Athlon", 28},
                                                           {"Sempron", 133},
                                                           {"FX(tm)", 63},
                                                           {"AMD A", 72},
                                                           {"AMD E-", 71},
                                                           {"AMD G-", 73},
                                                           {"VIA Nano", 217},
                                                           {"VIA C7", 212},
                                                           {"POWER", 32},
                                                           {"PPC", 32},
                                                           {"MIPS", 64},
                                                           {"UltraSparc", 84},
                                                           {"SPARC", 80},
                                                           {"PA8", 144},
                                                           {"Alpha", 48}}};
  for (const auto& [word, code] : kFamilies) {
    if (processor.modelName.find(word) != std::string::npos) return code;
  }
  if (processor.vendor == "IBM/S390") return 200;
  if (processor.armArchitecture == 7U) return 256;
  if (processor.armArchitecture == 8U) return 257;
  if (processor.armArchitecture) return 280;
  return processor.modelName.empty() && processor.isa.empty() ? 2 : 1;
}

std::optional<std::uint64_t> ParseCacheSize(std::string_view text) {
  text = Trim(text);
  constexpr std::string_view kUnits = "KMG";
  const std::size_t unit = text.empty() ? std::string_view::npos : kUnits.find(text.back());
  if (unit == std::string_view::npos) return ParseUnsigned(text);
  text.remove_suffix(1);
  return Multiply(ParseUnsigned(text), std::uint64_t{1} << (10 * (unit + 1)));
}

std::vector<std::uint32_t> ParseList(std::string_view text) {
  constexpr std::size_t kMaximumLength = 65536;
  std::vector<std::uint32_t> numbers;
  while (!text.empty()) {
    const std::string_view part = text.substr(0, text.find(','));
    text.remove_prefix(std::min(part.size() + 1, text.size()));
    const std::optional<TField> range = SplitField(part, '-');
    const auto first = ParseNumber<std::uint32_t>(range ? range->name : part);
    const auto last = range ? ParseNumber<std::uint32_t>(range->value) : first;
    if (!first || !last || *last < *first) return {};
    if (*last - *first >= kMaximumLength - numbers.size()) return {};
    for (std::uint32_t number = *first; number - *first <= *last - *first; ++number) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

std::uint16_t ParseCacheLevel(std::string_view text) {
  static constexpr std::array<TCodeName, 4> kLevels = {{{"", 0}, {"1", 3}, {"2", 4}, {"3", 5}}};
  return FindCode(kLevels, text, 1);
}

std::uint16_t ParseCacheType(std::string_view text) {
  static constexpr std::array<TCodeName, 4> kTypes = {
      {{"", 0}, {"Instruction", 2}, {"Data", 3}, {"Unified", 4}}};
  return FindCode(kTypes, text, 1);
}

std::uint16_t ParseAssociativity(std::string_view text) {
  // The kernel writes 0 for "fully associative".
  static constexpr std::array<TCodeName, 13> kWays = {{{"", 0},
                                                       {"0", 5},
                                                       {"1", 2},
                                                       {"2", 3},
                                                       {"4", 4},
                                                       {"8", 6},
                                                       {"12", 8},
                                                       {"16", 7},
                                                       {"20", 13},
                                                       {"24", 9},
                                                       {"32", 10},
                                                       {"48", 11},
                                                       {"64", 12}}};
  return FindCode(kWays, text, 1);
}

}  // namespace NZELVYR20

#include "ProcessText.h"

#include <algorithm>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

/// Where the fields after the name stand, which is the second.
enum EField : std::size_t {
  kState,
  kParent,
  kGroup,
  kSession,
  kUserTime = 11,
  kKernelTime,
  kPriority = 15,
  kStartTime = 19,
  kResident = 21,
  kFieldCount
};

/// The standard's ExecutionState for the kernel's letter.
std::uint16_t FindExecutionState(std::string_view letter) {
  constexpr std::string_view kLetters = "RSDIZTtXx";
  constexpr std::uint16_t kExecutionStates[] = {3, 4, 4, 4, 7, 8, 8, 7, 7};
  const std::size_t place = letter.size() == 1 ? kLetters.find(letter) : std::string_view::npos;
  return place == std::string_view::npos ? 0 : kExecutionStates[place];
}

/// The kernel counts those that must run at once below 0.
std::uint32_t ShiftPriority(std::string_view text) {
  constexpr std::uint32_t kFirst = 100;
  const bool isNegative = text.substr(0, 1) == "-";
  const auto size = ParseNumber<std::uint32_t>(isNegative ? text.substr(1) : text).value_or(0);
  if (!isNegative) return kFirst + size;
  return kFirst - std::min(size, kFirst);
}

}  // namespace

std::optional<TProcessFacts> ParseProcess(std::string_view text) {
  const std::size_t open = text.find('(');
  const std::size_t close = text.rfind(')');
  if (open == std::string_view::npos || close == std::string_view::npos || close < open) return {};
  const std::vector<std::string_view> fields = SplitWords(text.substr(close + 1));
  if (fields.size() < kFieldCount) return std::nullopt;
  const auto number = [&fields](EField field) { return ParseUnsigned(fields[field]).value_or(0); };
  TProcessFacts facts;
  facts.name = text.substr(open + 1, close - open - 1);
  facts.state = FindExecutionState(fields[kState]);
  facts.parent = fields[kParent];
  facts.group = number(kGroup);
  facts.session = number(kSession);
  facts.userTime = number(kUserTime);
  facts.kernelTime = number(kKernelTime);
  facts.priority = ShiftPriority(fields[kPriority]);
  facts.startTime = number(kStartTime);
  facts.residentPages = number(kResident);
  return facts;
}

}  // namespace NZELVYR20

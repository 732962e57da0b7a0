#include "TMofSummary.h"

#include <map>

namespace NZELVYR20 {
namespace {

std::string Count(std::size_t count, const char* what) {
  return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string Describe(const char* what, const TMofSummary::TCounts& counts) {
  if (counts.declared + counts.replaced + counts.skipped + counts.refused == 0) return {};
  std::string text = std::string("; ") + what + ": " + std::to_string(counts.declared) + " entered";
  if (counts.replaced > 0) text += ", " + std::to_string(counts.replaced) + " replaced";
  if (counts.skipped > 0) text += ", " + std::to_string(counts.skipped) + " skipped";
  if (counts.refused > 0) text += ", " + std::to_string(counts.refused) + " refused";
  return text;
}

}  // namespace

std::string TMofSummary::ToString() const {
  std::string text = Count(files, "file") + Describe("qualifiers", qualifiers) +
                     Describe("classes", classes) + Describe("instances", instances) + "; " +
                     Count(errors, "error") + ", " + Count(warnings, "warning") + ", " +
                     Count(notes, "note");
  std::map<std::string, std::string> names;
  for (const TRefusal& refusal : refusals) {
    std::string& list = names[refusal.why];
    list += list.empty() ? "" : ", ";
    list += refusal.name;
  }
  for (const auto& [why, list] : names) {
    text.append("\nrefused: ").append(why).append(": ").append(list);
  }
  for (const auto& [name, count] : dependents) {
    text += "\nleft out with " + name + ": " + Count(count, "declaration") +
            (count == 1 ? " that needs it" : " that need it");
  }
  return text;
}

}  // namespace NZELVYR20

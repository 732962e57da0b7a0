#include "QualifierText.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "FoldName.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "TPrinter.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

TCIMValue FindValue(const ICIMNamedElement& element, const std::string& name) {
  for (const auto& qualifier : ListQualifiers(element)) {
    if (CompareFolded(qualifier->GetName({}), name) == 0) return qualifier->GetValue({});
  }
  return {};
}

std::vector<std::string> FindTexts(const ICIMNamedElement& element, const std::string& name) {
  const TCIMValue value = FindValue(element, name);
  std::vector<std::string> texts;
  if (!value.IsArray() || value.IsNull()) return texts;
  for (const auto& text : static_cast<const std::vector<TCIMValue>&>(value)) {
    texts.push_back(TPrinter::ValueText(text));
  }
  return texts;
}

/// The values stand in one qualifier, the meanings in another; without the first they count from 0.
void AddMeanings(THtml& html, std::vector<std::string> values,
                 const std::vector<std::string>& meanings) {
  if (meanings.empty()) return;
  for (std::size_t i = values.size(); i < meanings.size(); ++i) values.push_back(std::to_string(i));
  html.Open("details");
  html.Add("summary", TText::Count(meanings.size(), "meaning"));
  html.Open("dl", {{"class", "values"}});
  for (std::size_t i = 0; i < meanings.size(); ++i) {
    html.Add("dt", values[i]);
    html.Add("dd", meanings[i]);
  }
  html.Close();
  html.Close();
}

bool IsToldApart(const std::string& name) {
  for (const char* const told : {"Description", "Units", "PUnit", "Values", "ValueMap", "BitValues",
                                 "BitMap", "Key", "Abstract", "Association"}) {
    if (CompareFolded(name, told) == 0) return true;
  }
  return false;
}

void AddOthers(THtml& html, const ICIMNamedElement& element) {
  bool isFirst = true;
  for (const auto& qualifier : ListQualifiers(element)) {
    const std::string name = qualifier->GetName({});
    if (IsToldApart(name)) continue;
    if (isFirst) html.Open("p", {{"class", "qualifiers"}});
    html.Text(isFirst ? "" : " ");
    isFirst = false;
    const TCIMValue& value = qualifier->GetValue({});
    html.Add("code", name + (value == TCIMValue(true) ? "" : " = " + TPrinter::ValueText(value)));
  }
  if (!isFirst) html.Close();
}

}  // namespace

std::string QualifierText(const ICIMNamedElement& element, const std::string& name) {
  const TCIMValue value = FindValue(element, name);
  return value.IsNull() ? "" : TPrinter::ValueText(value);
}

std::string ShortDescription(const ICIMNamedElement& element) {
  const std::string text = QualifierText(element, "Description");
  return text.substr(0, std::min(text.find(". "), text.size() - 1) + 1);
}

void AddQualifiers(THtml& html, const ICIMNamedElement& element) {
  const std::string description = QualifierText(element, "Description");
  if (!description.empty()) html.Add("p", description, {{"class", "description"}});
  for (const char* const name : {"Units", "PUnit"}) {
    const std::string units = QualifierText(element, name);
    if (!units.empty()) html.Add("p", std::string(name) + ": " + units);
  }
  AddMeanings(html, FindTexts(element, "ValueMap"), FindTexts(element, "Values"));
  AddMeanings(html, FindTexts(element, "BitMap"), FindTexts(element, "BitValues"));
  AddOthers(html, element);
}

}  // namespace NZELVYR20

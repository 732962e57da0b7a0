#include "ServiceText.h"

#include <optional>

#include "TextFields.h"

namespace NZELVYR20 {
namespace {

/// What stands between "@" and the kind of unit; nothing where there is no "@".
std::optional<std::string_view> FindUnitInstance(std::string_view name) {
  const std::size_t at = name.find('@');
  const std::size_t dot = name.rfind('.');
  if (at == std::string_view::npos || dot == std::string_view::npos || dot < at) return {};
  return name.substr(at + 1, dot - at - 1);
}

}  // namespace

TUnitFacts ParseUnit(std::string_view text) {
  TUnitFacts facts;
  std::string_view section;
  for (const std::string_view line : SplitLines(text)) {
    const std::string_view trimmed = Trim(line);
    if (trimmed.empty() || trimmed.front() == '#' || trimmed.front() == ';') continue;
    if (trimmed.front() == '[') section = trimmed;
    const std::optional<TField> field = SplitField(trimmed, '=');
    if (!field) continue;
    if (section == "[Unit]" && field->name == "Description") facts.description = field->value;
    if (section == "[Install]") facts.canBeEnabled = true;
  }
  return facts;
}

std::string FindUnitTemplate(std::string_view name) {
  const std::optional<std::string_view> instance = FindUnitInstance(name);
  if (!instance || instance->empty()) return {};
  return std::string(name.substr(0, name.find('@') + 1)).append(name.substr(name.rfind('.')));
}

bool IsUnitTemplate(std::string_view name) {
  const std::optional<std::string_view> instance = FindUnitInstance(name);
  return instance && instance->empty();
}

std::string FillUnitText(std::string text, std::string_view name) {
  const std::optional<std::string_view> instance = FindUnitInstance(name);
  if (!instance) return text;
  for (std::size_t at = 0; (at = text.find('%', at)) != std::string::npos;) {
    const char letter = at + 1 < text.size() ? text[at + 1] : '\0';
    const bool isInstance = letter == 'i' || letter == 'I';
    if (isInstance) text.replace(at, 2, *instance);
    at += isInstance ? instance->size() : 2;
  }
  return text;
}

}  // namespace NZELVYR20

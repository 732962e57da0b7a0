#include "PathText.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "TCIMDateTime.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

namespace {

// Half of a surrogate pair has no UTF-8 of its own; as a number it cannot meet a quoted character.
std::string CharacterKeyText(const TCIMValue& value) {
  const auto code = static_cast<char16_t>(value);
  if (code >= 0xD800 && code <= 0xDFFF) return std::to_string(static_cast<unsigned>(code));
  return QuoteText(value.ToString(10));
}

// Each level of references in references doubles the escapes of those inside.
constexpr std::size_t kLongestInnerPath = std::size_t{8} * 1024 * 1024;

std::string ReferenceKeyText(const TCIMValue& value, EPathForm form) {
  const auto path = static_cast<TCIMReference>(value);
  const std::string text = form == EPathForm::kCanonical ? path.GetPath() : path.ToString();
  if (text.size() > kLongestInnerPath)
    throw std::length_error("object path: references are nested too deeply");
  return QuoteText(text);
}

// No class has a key of an array type, but a path can be given one.
std::string ArrayKeyText(const TCIMValue& value, EPathForm form) {
  std::string text = "{";
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    text += KeyValueText(element, form);
    text += ',';
  }
  return text + '}';
}

}  // namespace

bool IsNameStart(char character) noexcept {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         character == '_';
}

bool IsNamePart(char character) noexcept {
  return IsNameStart(character) || (character >= '0' && character <= '9');
}

std::string FoldName(std::string name) {
  for (char& character : name) {
    if (character >= 'A' && character <= 'Z') character = static_cast<char>(character + 'a' - 'A');
  }
  return name;
}

std::string QuoteText(const std::string& text) {
  std::string quoted = "\"";
  quoted.reserve(text.size() + 2);
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::string KeyNameText(const std::string& name) {
  const bool isName = !name.empty() && IsNameStart(name.front()) &&
                      std::all_of(name.begin(), name.end(), IsNamePart);
  return isName ? name : QuoteText(name);
}

std::string KeyValueText(const TCIMValue& value, EPathForm form) {
  if (value.IsNull()) return "NULL";
  if (value.IsArray()) return ArrayKeyText(value, form);
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kChar16:
      return CharacterKeyText(value);
    case TCIMValue::TCIMType::kString:
      return QuoteText(static_cast<std::string>(value));
    case TCIMValue::TCIMType::kDateTime:
      return QuoteText(static_cast<TCIMDateTime>(value).ToCIMString());
    case TCIMValue::TCIMType::kReference:
      return ReferenceKeyText(value, form);
    default:
      return value.ToString(10);
  }
}

}  // namespace NZELVYR20

#include "PathText.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

#include "FoldName.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

namespace {

// Each level of references in references doubles the escapes of those inside.
constexpr std::size_t kLongestInnerPath = std::size_t{8} * 1024 * 1024;

void AppendQuoted(std::string& path, const std::string& text) {
  path += '"';
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '"' && text[at] != '\\') continue;
    path.append(text, written, at - written) += '\\';
    written = at;
  }
  path.append(text, written) += '"';
}

// Half of a surrogate pair has no UTF-8 of its own; as a number it cannot meet a quoted character.
void AppendCharacter(std::string& path, const TCIMValue& value) {
  const auto code = static_cast<char16_t>(value);
  if (code >= 0xD800 && code <= 0xDFFF) {
    path += std::to_string(static_cast<unsigned>(code));
  } else {
    AppendQuoted(path, value.ToString(10));
  }
}

void AppendReference(std::string& path, const TCIMValue& value, EPathForm form) {
  const auto inner = static_cast<TCIMReference>(value);
  const std::string text = form == EPathForm::kCanonical ? inner.GetPath() : inner.ToString();
  if (text.size() > kLongestInnerPath) {
    throw std::length_error("object path: references are nested too deeply");
  }
  AppendQuoted(path, text);
}

// No class has a key of an array type, but a path can be given one.
void AppendArray(std::string& path, const TCIMValue& value, EPathForm form) {
  path += '{';
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    AppendKeyValue(path, element, form);
    path += ',';
  }
  path += '}';
}

}  // namespace

std::string QuoteText(const std::string& text) {
  std::string quoted;
  quoted.reserve(text.size() + 2);
  AppendQuoted(quoted, text);
  return quoted;
}

void AppendKeyName(std::string& path, const std::string& name, EPathForm form) {
  const std::size_t start = path.size();
  const bool isName =
      !name.empty() && IsNameStart(name.front()) &&
      std::all_of(name.begin(), name.end(), [](char part) { return IsNamePart(part); });
  if (isName) {
    path += name;
  } else {
    AppendQuoted(path, name);
  }
  if (form == EPathForm::kDeclared) return;
  const auto written = path.begin() + static_cast<std::ptrdiff_t>(start);
  std::transform(written, path.end(), written, FoldLetter);
}

void AppendKeyValue(std::string& path, const TCIMValue& value, EPathForm form) {
  if (value.IsNull()) {
    path += "NULL";
    return;
  }
  if (value.IsArray()) return AppendArray(path, value, form);
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kChar16:
      return AppendCharacter(path, value);
    case TCIMValue::TCIMType::kString:
      return AppendQuoted(path, static_cast<std::string>(value));
    case TCIMValue::TCIMType::kDateTime:
      return AppendQuoted(path, static_cast<TCIMDateTime>(value).ToCIMString());
    case TCIMValue::TCIMType::kReference:
      return AppendReference(path, value, form);
    default:
      path += value.ToString(10);
  }
}

}  // namespace NZELVYR20

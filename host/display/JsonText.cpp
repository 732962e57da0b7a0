#include "JsonText.h"

#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "TCIMDateTime.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

using TJson = nlohmann::json;
using TType = TCIMValue::TCIMType;

constexpr std::size_t kIndent = 2;

/// The library is asked for scalars alone: it needs memory to destroy a list, and so a lack of it
/// would end the process.
std::string Dump(const TJson& scalar) {
  const auto dump = [&scalar](bool isAscii) {
    return scalar.dump(-1, ' ', isAscii, TJson::error_handler_t::replace);
  };
  const std::string text = dump(false);
  return TText::IsVisible(text) ? text : dump(true);
}

}  // namespace

std::string JsonText(const std::string& text) { return Dump(text); }

std::string JsonText(const char* text) { return Dump(text); }

std::string JsonText(bool value) { return Dump(value); }

std::string JsonScalar(const TCIMValue& value) {
  if (value.IsNull()) return "null";
  switch (value.GetType()) {
    case TType::kBoolean:
      return JsonText(static_cast<bool>(value));
    case TType::kReal32:
      return Dump(static_cast<float>(value));
    case TType::kReal64:
      return Dump(static_cast<double>(value));
    case TType::kDateTime:
      return JsonText(static_cast<TCIMDateTime>(value).ToCIMString());
    case TType::kReference:
      return JsonText(TText::OneLine(value.ToString(10)));
    case TType::kChar16:
    case TType::kString:
      return JsonText(value.ToString(10));
    default:
      return value.ToString(10);
  }
}

std::string JsonValue(const TCIMValue& value) {
  if (value.IsNull() || !value.IsArray()) return JsonScalar(value);
  return JsonLine("[]", JsonScalars(value));
}

std::vector<std::string> JsonScalars(const TCIMValue& array) {
  std::vector<std::string> items;
  const auto& elements = static_cast<const std::vector<TCIMValue>&>(array);
  items.reserve(elements.size());
  for (const TCIMValue& element : elements) items.push_back(JsonScalar(element));
  return items;
}

std::vector<std::string> JsonTexts(const std::vector<std::string>& texts) {
  std::vector<std::string> items;
  items.reserve(texts.size());
  for (const std::string& text : texts) items.push_back(JsonText(text));
  return items;
}

std::string JsonLine(const char* brackets, const std::vector<std::string>& items) {
  return brackets[0] + TText::Join(items, ",") + brackets[1];
}

std::string JsonBlock(const char* brackets, const std::vector<std::string>& items,
                      std::size_t margin) {
  if (items.empty()) return brackets;
  const std::string begin = '\n' + std::string(margin + kIndent, ' ');
  return brackets[0] + begin + TText::Join(items, "," + begin) + '\n' + std::string(margin, ' ') +
         brackets[1];
}

}  // namespace NZELVYR20

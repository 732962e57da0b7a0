#include "TInstanceJson.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "ListElements.h"
#include "TCIMDateTime.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using TJson = nlohmann::json;
using TType = TCIMValue::TCIMType;
using TItems = std::vector<std::string>;

constexpr std::size_t kJsonIndent = 2;
constexpr std::size_t kPropertyMargin = 2 * kJsonIndent;
constexpr std::size_t kItemMargin = 3 * kJsonIndent;

/// Where there is anything that a terminal would obey, nothing but ASCII.
std::string ScalarText(const TJson& scalar) {
  const auto dump = [&scalar](bool isAscii) {
    return scalar.dump(-1, ' ', isAscii, TJson::error_handler_t::replace);
  };
  const std::string text = dump(false);
  return TText::IsVisible(text) ? text : dump(true);
}

/// An object or a list, by its brackets. The library is asked for scalars alone: it needs memory to
/// destroy a list, and so a lack of it would end the process.
std::string ListText(const std::string& brackets, const TItems& items, std::size_t margin) {
  if (items.empty()) return brackets;
  std::string text;
  for (const std::string& item : items) {
    text += (text.empty() ? brackets.front() : ',');
    text += '\n' + std::string(margin + kJsonIndent, ' ') + item;
  }
  return text + '\n' + std::string(margin, ' ') + brackets.back();
}

std::string MemberText(const std::string& name, const std::string& value) {
  return ScalarText(name) + ": " + value;
}

/// Numbers as numbers; what JSON has no word for as text.
TJson ScalarJson(const TCIMValue& value) {
  if (value.IsNull()) return nullptr;
  switch (value.GetType()) {
    case TType::kBoolean:
      return static_cast<bool>(value);
    case TType::kUInt8:
      return static_cast<unsigned char>(value);
    case TType::kSInt8:
      return static_cast<signed char>(value);
    case TType::kUInt16:
      return static_cast<unsigned short>(value);
    case TType::kSInt16:
      return static_cast<short>(value);
    case TType::kUInt32:
      return static_cast<unsigned int>(value);
    case TType::kSInt32:
      return static_cast<int>(value);
    case TType::kUInt64:
      return static_cast<unsigned long long>(value);
    case TType::kSInt64:
      return static_cast<long long>(value);
    case TType::kReal32:
      return static_cast<float>(value);
    case TType::kReal64:
      return static_cast<double>(value);
    case TType::kDateTime:
      return static_cast<TCIMDateTime>(value).ToCIMString();
    default:
      return value.ToString(10);
  }
}

std::string ValueText(const TCIMValue& value) {
  if (value.IsNull() || !value.IsArray()) return ScalarText(ScalarJson(value));
  TItems elements;
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    elements.push_back(ScalarText(ScalarJson(element)));
  }
  return ListText("[]", elements, kItemMargin);
}

std::string DisplayText(const ICIMProperty& property) {
  if (property.GetValue({}).IsNull() || !property.IsArray({})) {
    return ScalarText(TPrinter::ScalarText(property));
  }
  TItems texts;
  for (const std::string& text : property.ToStringVector()) texts.push_back(ScalarText(text));
  return ListText("[]", texts, kItemMargin);
}

std::string PropertyText(const ICIMProperty& property, bool isKey) {
  return ListText("{}",
                  {MemberText("type", ScalarText(TypeText(property.GetType({})))),
                   MemberText("key", ScalarText(isKey)),
                   MemberText("default", ScalarText(property.IsDefaultValue({}))),
                   MemberText("value", ValueText(property.GetValue({}))),
                   MemberText("text", DisplayText(property))},
                  kPropertyMargin);
}

}  // namespace

std::string TInstanceJson::Write(ICIMInstance& instance) {
  const auto cimClass = instance.GetClass({});
  const auto keys = TInstanceReader::ListKeyNames(*cimClass);
  TItems properties;
  for (const auto& property : ListProperties(instance)) {
    const std::string name = TInstanceReader::NameOf(*property);
    properties.push_back(MemberText(name, PropertyText(*property, keys.count(name) > 0)));
  }
  return ListText("{}",
                  {MemberText("class", ScalarText(cimClass->GetName({}))),
                   MemberText("path", ScalarText(TPrinter::PathText(instance))),
                   MemberText("properties", ListText("{}", properties, kJsonIndent))},
                  0) +
         "\n";
}

}  // namespace NZELVYR20

#include "TInstanceJson.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "ICIMClass.h"
#include "TCIMDateTime.h"
#include "TInstanceReader.h"
#include "TPrinter.h"

namespace NZELVYR20 {
namespace {

using TJson = nlohmann::ordered_json;
using TType = TCIMValue::TCIMType;

TJson ValueJson(const TCIMValue& value);

TJson ElementsJson(const TCIMValue& value) {
  TJson elements = TJson::array();
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    elements.push_back(ValueJson(element));
  }
  return elements;
}

/// Numbers as numbers; what JSON has no word for as text.
TJson ValueJson(const TCIMValue& value) {
  if (value.IsNull()) return nullptr;
  if (value.IsArray()) return ElementsJson(value);
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

TJson TextJson(const ICIMProperty& property) {
  if (property.GetValue({}).IsNull() || !property.IsArray({})) return property.ToString();
  return property.ToStringVector();
}

TJson PropertyJson(const ICIMProperty& property, bool isKey) {
  return {{"type", TPrinter::TypeText(property.GetType({}))},
          {"key", isKey},
          {"default", property.IsDefaultValue({})},
          {"value", ValueJson(property.GetValue({}))},
          {"text", TextJson(property)}};
}

}  // namespace

std::string TInstanceJson::Write(ICIMInstance& instance) {
  const auto cimClass = instance.GetClass({});
  const auto keys = TInstanceReader::ListKeyNames(*cimClass);
  TJson properties = TJson::object();
  for (const auto& property : TInstanceReader::ListProperties(instance)) {
    const std::string name = TInstanceReader::NameOf(*property);
    properties[name] = PropertyJson(*property, keys.count(name) > 0);
  }
  const TJson json = {{"class", cimClass->GetName({})},
                      {"path", instance.GetReference({}).ToString()},
                      {"properties", properties}};
  constexpr int kIndent = 2;
  return json.dump(kIndent, ' ', false, TJson::error_handler_t::replace) + "\n";
}

}  // namespace NZELVYR20

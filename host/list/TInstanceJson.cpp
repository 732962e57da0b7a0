#include "TInstanceJson.h"

#include <string>
#include <vector>

#include "ICIMClass.h"
#include "JsonText.h"
#include "ListElements.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using TItems = std::vector<std::string>;

constexpr std::size_t kPropertyMargin = 4;
constexpr std::size_t kItemMargin = 6;

std::string MemberText(const std::string& name, const std::string& value) {
  return JsonText(name) + ": " + value;
}

std::string ValueText(const TCIMValue& value) {
  if (value.IsNull() || !value.IsArray()) return JsonScalar(value);
  return JsonBlock("[]", JsonScalars(value), kItemMargin);
}

std::string DisplayText(const ICIMProperty& property) {
  if (property.GetValue({}).IsNull() || !property.IsArray({})) {
    return JsonText(TPrinter::ScalarText(property));
  }
  return JsonBlock("[]", JsonTexts(property.ToStringVector()), kItemMargin);
}

std::string PropertyText(const ICIMProperty& property, bool isKey) {
  return JsonBlock("{}",
                   {MemberText("type", JsonText(TypeText(property.GetType({})))),
                    MemberText("key", JsonText(isKey)),
                    MemberText("default", JsonText(property.IsDefaultValue({}))),
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
  return JsonBlock("{}",
                   {MemberText("class", JsonText(cimClass->GetName({}))),
                    MemberText("path", JsonText(TPrinter::PathText(instance))),
                    MemberText("properties", JsonBlock("{}", properties, 2))},
                   0) +
         "\n";
}

}  // namespace NZELVYR20

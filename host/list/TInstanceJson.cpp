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
  return JsonBlock("[]", JsonTexts(TPrinter::ElementTexts(property)), kItemMargin);
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

/// Both of what is not null.
struct TLineParts {
  TItems values, texts;

  void Add(const ICIMProperty& property) {
    const TCIMValue& value = property.GetValue({});
    if (value.IsNull()) return;
    const std::string name = JsonText(TInstanceReader::NameOf(property)) + ':';
    values.push_back(name + JsonValue(value));
    texts.push_back(name + (value.IsArray()
                                ? JsonLine("[]", JsonTexts(TPrinter::ElementTexts(property)))
                                : JsonText(TPrinter::ScalarText(property))));
  }
};

}  // namespace

std::string TInstanceJson::Write(ICIMInstance& instance, const TProperties& properties) {
  const auto cimClass = instance.GetClass({});
  const auto keys = TInstanceReader::ListKeyNames(*cimClass);
  TItems members;
  for (const auto& property : properties) {
    if (!property) continue;
    const std::string name = TInstanceReader::NameOf(*property);
    members.push_back(MemberText(name, PropertyText(*property, keys.count(name) > 0)));
  }
  return JsonBlock("{}",
                   {MemberText("class", JsonText(cimClass->GetName({}))),
                    MemberText("path", JsonText(TPrinter::PathText(instance))),
                    MemberText("properties", JsonBlock("{}", members, kPropertyMargin - 2))},
                   0);
}

std::string TInstanceJson::WriteLine(ICIMInstance& instance, const TProperties& properties,
                                     const TOrigin& origin) {
  TLineParts parts;
  for (const auto& property : properties) {
    if (property) parts.Add(*property);
  }
  return JsonLine("{}", {"\"format\":1", "\"machine\":" + JsonText(origin.machine),
                         "\"time\":" + JsonText(origin.time),
                         "\"class\":" + JsonText(instance.GetClass({})->GetName({})),
                         "\"path\":" + JsonText(TPrinter::PathText(instance)),
                         "\"values\":" + JsonLine("{}", parts.values),
                         "\"texts\":" + JsonLine("{}", parts.texts)});
}

}  // namespace NZELVYR20

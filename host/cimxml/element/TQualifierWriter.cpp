#include "TQualifierWriter.h"

#include <optional>
#include <string>
#include <string_view>

#include "FoldName.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "ScalarText.h"

namespace NZELVYR20 {
namespace {

using TFlavor = ICIMQualifierDecl::EFlavor;
using TScope = ICIMQualifierDecl::EScope;

/// A word for a flavor or scope that is not what the protocol takes for granted.
std::optional<std::string_view> WordUnless(bool isUsual, const char* word) {
  if (isUsual) return std::nullopt;
  return word;
}

std::optional<std::string_view> Overridable(TFlavor flavor) {
  return WordUnless((flavor & TFlavor::kOverridable) != 0, "false");
}

std::optional<std::string_view> ToSubclass(TFlavor flavor) {
  return WordUnless((flavor & TFlavor::kToSubclass) != 0, "false");
}

std::optional<std::string_view> Translatable(TFlavor flavor) {
  return WordUnless((flavor & TFlavor::kTranslatable) == 0, "true");
}

std::optional<std::string_view> InScope(TScope scope, TScope kind) {
  return WordUnless((scope & kind) == 0, "true");
}

bool MakesKind(const std::string& name) {
  const std::string folded = FoldName(name);
  return folded == "association" || folded == "indication";
}

}  // namespace

TQualifierWriter::TQualifierWriter(TXmlWriter& xml, TValueWriter& values)
    : xml_(xml), values_(values) {}

void TQualifierWriter::WriteAll(const ICIMNamedElement& element, bool localOnly) {
  for (const auto& qualifier : ListQualifiers(element)) {
    const bool isWritten =
        !localOnly || !qualifier->GetPropagated({}) || MakesKind(qualifier->GetName({}));
    if (isWritten) Write(*qualifier);
  }
}

void TQualifierWriter::WriteDeclaration(const ICIMQualifierDecl& declaration) {
  const TCIMValue& value = declaration.GetDefaultValue({});
  const TFlavor flavor = declaration.GetFlavor({});
  const TScope scope = declaration.GetScope({});
  xml_.WriteElement("QUALIFIER.DECLARATION",
                    {{"NAME", declaration.GetName({})},
                     {"TYPE", XmlTypeOf(value.GetType())},
                     {"ISARRAY", value.IsArray() ? "true" : "false"},
                     {"OVERRIDABLE", Overridable(flavor)},
                     {"TOSUBCLASS", ToSubclass(flavor)},
                     {"TRANSLATABLE", Translatable(flavor)}},
                    [&] {
                      xml_.WriteEmpty("SCOPE",
                                      {{"CLASS", InScope(scope, TScope::kClass)},
                                       {"ASSOCIATION", InScope(scope, TScope::kAssociation)},
                                       {"REFERENCE", InScope(scope, TScope::kReference)},
                                       {"PROPERTY", InScope(scope, TScope::kProperty)},
                                       {"METHOD", InScope(scope, TScope::kMethod)},
                                       {"PARAMETER", InScope(scope, TScope::kParameter)},
                                       {"INDICATION", InScope(scope, TScope::kIndication)}});
                      values_.Write(value);
                    });
}

void TQualifierWriter::Write(const ICIMQualifier& qualifier) {
  const TCIMValue& value = qualifier.GetValue({});
  const TFlavor flavor = qualifier.GetFlavor({});
  xml_.WriteElement("QUALIFIER",
                    {{"NAME", qualifier.GetName({})},
                     {"TYPE", XmlTypeOf(value.GetType())},
                     {"PROPAGATED", WordUnless(!qualifier.GetPropagated({}), "true")},
                     {"OVERRIDABLE", Overridable(flavor)},
                     {"TOSUBCLASS", ToSubclass(flavor)},
                     {"TRANSLATABLE", Translatable(flavor)}},
                    [&] { values_.Write(value); });
}

}  // namespace NZELVYR20

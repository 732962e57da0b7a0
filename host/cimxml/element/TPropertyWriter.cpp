#include "TPropertyWriter.h"

#include <string_view>

#include "ScalarText.h"

namespace NZELVYR20 {
namespace {

std::optional<std::string> ReferencedClassName(const TCIMValue& value) {
  const auto referenced = value.GetReferencedClass();
  return referenced ? std::optional<std::string>(referenced->GetName({})) : std::nullopt;
}

}  // namespace

TPropertyWriter::TPropertyWriter(TXmlWriter& xml, TValueWriter& values,
                                 TQualifierWriter& qualifiers)
    : xml_(xml), values_(values), qualifiers_(qualifiers) {}

void TPropertyWriter::WriteDeclared(const ICIMPropertyDecl& property, const ICIMClass& cimClass,
                                    const TElementForm& form) {
  Write(property, PropagatedWord(property, cimClass), form, [&] {
    if (form.qualifiers) qualifiers_.WriteAll(property, false);
    values_.Write(property.GetDefaultValue({}));
  });
}

void TPropertyWriter::WriteValue(const ICIMPropertyDecl& property, const TCIMValue& value,
                                 const TElementForm& form) {
  Write(property, std::nullopt, form, [&] { values_.Write(value); });
}

template <class TWriteContent>
void TPropertyWriter::Write(const ICIMPropertyDecl& property,
                            std::optional<std::string_view> propagated, const TElementForm& form,
                            const TWriteContent& writeContent) {
  const TCIMValue& value = property.GetDefaultValue({});
  const std::optional<std::string> origin = OriginOf(property, form);
  const TXmlAttribute name{"NAME", property.GetName({})};
  const TXmlAttribute classOrigin{"CLASSORIGIN", origin};
  const TXmlAttribute inherited{"PROPAGATED", propagated};
  if (value.IsReference()) {
    const std::optional<std::string> target = ReferencedClassName(value);
    xml_.WriteElement("PROPERTY.REFERENCE",
                      {name, {"REFERENCECLASS", target}, classOrigin, inherited}, writeContent);
  } else {
    const char* const kind = value.IsArray() ? "PROPERTY.ARRAY" : "PROPERTY";
    const std::string type = XmlTypeOf(value.GetType());
    xml_.WriteElement(kind, {name, {"TYPE", type}, classOrigin, inherited}, writeContent);
  }
}

}  // namespace NZELVYR20

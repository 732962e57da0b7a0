#include "TClassWriter.h"

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>

#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "ScalarText.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// Nothing for a class at the top.
std::optional<std::string> SuperClassName(const ICIMClass& cimClass) {
  const boost::shared_ptr<ICIMClass> superClass = cimClass.GetSuperClass({});
  if (!superClass || superClass->IsRootClass({})) return std::nullopt;
  return superClass->GetName({});
}

template <class TDeclaration>
bool IsWritten(const TDeclaration& declaration, const ICIMClass& cimClass,
               const TElementForm& form) {
  return !form.localOnly || IsOwn(declaration, cimClass);
}

}  // namespace

TClassWriter::TClassWriter(TXmlWriter& xml, TPropertyWriter& properties,
                           TQualifierWriter& qualifiers)
    : xml_(xml), properties_(properties), qualifiers_(qualifiers) {}

void TClassWriter::Write(const ICIMClass& cimClass, const TElementForm& form) {
  const std::optional<std::string> superClass = SuperClassName(cimClass);
  xml_.WriteElement("CLASS", {{"NAME", cimClass.GetName({})}, {"SUPERCLASS", superClass}}, [&] {
    if (form.qualifiers) qualifiers_.WriteAll(cimClass, form.localOnly);
    for (const auto& property : ListPropertyDecls(cimClass)) {
      const bool isListed = form.IsListed(property->GetName({}));
      if (!isListed || !IsWritten(*property, cimClass, form)) continue;
      properties_.WriteDeclared(*property, cimClass, form);
    }
    for (const auto& method : ListMethodDecls(cimClass)) {
      if (IsWritten(*method, cimClass, form)) WriteMethod(*method, cimClass, form);
    }
  });
}

void TClassWriter::WriteMethod(ICIMMethodDecl& method, const ICIMClass& cimClass,
                               const TElementForm& form) {
  const std::optional<std::string> origin = OriginOf(method, form);
  xml_.WriteElement("METHOD",
                    {{"NAME", method.GetName({})},
                     {"TYPE", XmlTypeOf(method.GetReturnType({}))},
                     {"CLASSORIGIN", origin},
                     {"PROPAGATED", PropagatedWord(method, cimClass)}},
                    [&] {
                      if (form.qualifiers) qualifiers_.WriteAll(method, false);
                      for (const auto& parameter : ListParameterDecls(method)) {
                        WriteParameter(*parameter, form);
                      }
                    });
}

/// To what class a reference leads, the repository does not keep.
void TClassWriter::WriteParameter(const ICIMParameterDecl& parameter, const TElementForm& form) {
  const TType type = parameter.GetType({});
  const bool isReference = type.GetElementType() == TType::kReference;
  const std::string kind = std::string(type.IsArray() ? (isReference ? ".REFARRAY" : ".ARRAY")
                                                      : (isReference ? ".REFERENCE" : ""));
  const std::optional<std::string> typeName =
      isReference ? std::nullopt : std::optional<std::string>(XmlTypeOf(type));
  xml_.WriteElement(("PARAMETER" + kind).c_str(),
                    {{"NAME", parameter.GetName({})}, {"TYPE", typeName}}, [&] {
                      if (form.qualifiers) qualifiers_.WriteAll(parameter, false);
                    });
}

}  // namespace NZELVYR20

#include "TMofClassText.h"

#include <boost/shared_ptr.hpp>
#include <cstddef>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TMofQualifierText.h"
#include "TMofValueText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kMemberMargin = 2;
constexpr std::size_t kParameterMargin = 6;

/// "uint16", or "CIM_Disk REF".
template <class TGetTarget>
std::string MemberTypeText(const TCIMValue::TCIMType& type, const TGetTarget& getTarget) {
  const TCIMValue::TCIMType element = type.GetElementType();
  if (element == TCIMValue::TCIMType::kReference) return getTarget() + " REF";
  if (element == TCIMValue::TCIMType::kNone) return "void";
  return TypeText(element);
}

std::string ArrayText(const TCIMValue::TCIMType& type) { return type.IsArray() ? "[]" : ""; }

/// Begins a member: with an empty line, where it comes from and its qualifiers.
template <class TDeclaration>
void AppendBeginning(std::string& text, const TDeclaration& declaration,
                     const ICIMClass& cimClass) {
  const boost::shared_ptr<ICIMClass> owner = declaration.GetClass({});
  text += '\n';
  if (owner && owner.get() != &cimClass) text += "  // inherited from " + owner->GetName({}) + '\n';
  TMofQualifierText::AppendList(text, declaration, true, kMemberMargin);
}

void AppendProperty(std::string& text, const ICIMPropertyDecl& property) {
  const TCIMValue& value = property.GetDefaultValue({});
  const TCIMValue::TCIMType type = value.GetType();
  const auto getTarget = [&value] {
    const auto target = value.GetReferencedClass();
    return target ? target->GetName({}) : "object";
  };
  const std::string head =
      "  " + MemberTypeText(type, getTarget) + ' ' + property.GetName({}) + ArrayText(type);
  if (value.IsNull()) {
    text += head + ';';
  } else {
    TMofValueText::Append(text, head + " = ", value, ";", kMemberMargin + 4);
  }
  text += '\n';
}

void AppendParameter(std::string& text, const ICIMMethodDecl& method,
                     const ICIMParameterDecl& parameter, const TMofReferenceClasses& classes) {
  const TCIMValue::TCIMType type = parameter.GetType({});
  TMofQualifierText::AppendList(text, parameter, true, kParameterMargin);
  const std::string& name = parameter.GetName({});
  text += std::string(kParameterMargin, ' ') +
          MemberTypeText(type, [&] { return classes.Get(method, name); }) + ' ' + name +
          ArrayText(type);
}

void AppendMethod(std::string& text, ICIMMethodDecl& method, const TMofReferenceClasses& classes) {
  const TCIMValue::TCIMType type = method.GetReturnType({});
  text += "  " + MemberTypeText(type, [&] { return classes.Get(method, ""); }) + ArrayText(type) +
          ' ' + method.GetName({}) + '(';
  const char* separator = "\n";
  for (const auto& parameter : ListParameterDecls(method)) {
    text += separator;
    AppendParameter(text, method, *parameter, classes);
    separator = ",\n";
  }
  text += ");\n";
}

template <class TDeclaration>
bool IsWritten(const TDeclaration& declaration, const ICIMClass& cimClass, bool isInherited) {
  return isInherited || declaration.GetClass({}).get() == &cimClass;
}

void AppendHead(std::string& text, const ICIMClass& cimClass) {
  const boost::shared_ptr<ICIMClass> superClass = cimClass.GetSuperClass({});
  const bool hasSuperClass = superClass && !superClass->IsRootClass({});
  text += "class " + cimClass.GetName({}) + (hasSuperClass ? " : " + superClass->GetName({}) : "") +
          " {\n";
}

}  // namespace

void TMofClassText::Append(std::string& text, const ICIMClass& cimClass, bool isInherited,
                           const TMofReferenceClasses& referenceClasses) {
  TMofQualifierText::AppendList(text, cimClass, isInherited, 0);
  AppendHead(text, cimClass);
  for (const auto& property : ListPropertyDecls(cimClass)) {
    if (!IsWritten(*property, cimClass, isInherited)) continue;
    AppendBeginning(text, *property, cimClass);
    AppendProperty(text, *property);
  }
  for (const auto& method : ListMethodDecls(cimClass)) {
    if (!IsWritten(*method, cimClass, isInherited)) continue;
    AppendBeginning(text, *method, cimClass);
    AppendMethod(text, *method, referenceClasses);
  }
  text += "};\n";
}

}  // namespace NZELVYR20

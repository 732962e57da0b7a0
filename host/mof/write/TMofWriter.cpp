#include "TMofWriter.h"

#include <vector>

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TMofClassText.h"
#include "TMofQualifierText.h"
#include "TMofValueText.h"
#include "TMofWriteOrder.h"

namespace NZELVYR20 {
namespace {

void AppendInstance(std::string& text, ICIMInstance& instance) {
  text += "instance of " + instance.GetClass({})->GetName({}) + " {\n";
  for (const auto& property : ListProperties(instance)) {
    if (property->IsDefaultValue({})) continue;
    TMofValueText::Append(text, "  " + property->GetDeclaration({})->GetName({}) + " = ",
                          property->GetValue({}), ";", 6);
    text += '\n';
  }
  text += "};\n";
}

}  // namespace

std::string TMofWriter::WriteClass(const boost::shared_ptr<ICIMClass>& cimClass, bool isInherited,
                                   const TMofReferenceClasses& referenceClasses) {
  std::string text;
  TMofClassText::Append(text, *cimClass, isInherited, referenceClasses);
  return text;
}

std::string TMofWriter::WriteQualifierDecl(
    const boost::shared_ptr<ICIMQualifierDecl>& declaration) {
  std::string text;
  TMofQualifierText::AppendDeclaration(text, *declaration);
  return text;
}

std::string TMofWriter::WriteInstance(const boost::shared_ptr<ICIMInstance>& instance) {
  std::string text;
  AppendInstance(text, *instance);
  return text;
}

std::string TMofWriter::WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                       const TMofReferenceClasses& referenceClasses) {
  std::string text;
  const auto separate = [&text] { text += text.empty() ? "" : "\n"; };
  for (const auto& declaration : ListQualifierDecls(*nameSpace)) {
    separate();
    TMofQualifierText::AppendDeclaration(text, *declaration);
  }
  const TClassList classes = TMofWriteOrder::ListClasses(*nameSpace);
  for (const auto& cimClass : classes) {
    separate();
    TMofClassText::Append(text, *cimClass, false, referenceClasses);
  }
  for (const auto& instance : TMofWriteOrder::ListInstances(classes)) {
    separate();
    AppendInstance(text, *instance);
  }
  return text;
}

}  // namespace NZELVYR20

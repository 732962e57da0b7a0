#include "TMofWriter.h"

#include <string>
#include <utility>

#include "ICIMProperty.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TMofClassText.h"
#include "TMofQualifierText.h"
#include "TMofValueText.h"
#include "TMofWriteOrder.h"

namespace NZELVYR20 {
namespace {

std::string InstanceText(ICIMInstance& instance) {
  std::string text = "instance of " + instance.GetClass({})->GetName({}) + " {\n";
  for (const auto& property : ListProperties(instance)) {
    if (property->IsDefaultValue({})) continue;
    TMofValueText::Append(text, "  " + property->GetDeclaration({})->GetName({}) + " = ",
                          property->GetValue({}), ";", 6);
    text += '\n';
  }
  return text + "};\n";
}

/// Passes elements on, with an empty line between each two.
class TSeparator {
 public:
  explicit TSeparator(const TWriteText& write) : write_(write) {}

  void Write(std::string element) {
    if (!std::exchange(isFirst_, false)) element.insert(0, 1, '\n');
    write_(element);
  }

 private:
  const TWriteText& write_;
  bool isFirst_ = true;
};

void WriteSchema(TSeparator& separator, ICIMNamespace& nameSpace, const TClassList& classes,
                 const TMofReferenceClasses& referenceClasses) {
  for (const auto& declaration : ListQualifierDecls(nameSpace)) {
    separator.Write(TMofWriter::WriteQualifierDecl(declaration));
  }
  for (const auto& cimClass : classes) {
    separator.Write(TMofWriter::WriteClass(cimClass, false, referenceClasses));
  }
}

void WriteEach(TSeparator& separator, const TInstanceList& instances) {
  for (const auto& instance : instances) separator.Write(InstanceText(*instance));
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
  return InstanceText(*instance);
}

void TMofWriter::WriteInstances(const TInstanceList& instances, const TWriteText& write) {
  TSeparator separator(write);
  WriteEach(separator, instances);
}

void TMofWriter::WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                const TMofReferenceClasses& referenceClasses,
                                const TWriteText& write) {
  const TClassList classes = TMofWriteOrder::ListClasses(*nameSpace);
  TSeparator separator(write);
  WriteSchema(separator, *nameSpace, classes, referenceClasses);
  WriteEach(separator, TMofWriteOrder::ListInstances(classes));
}

std::string TMofWriter::WriteNamespace(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                       const TMofReferenceClasses& referenceClasses) {
  std::string text;
  WriteNamespace(nameSpace, referenceClasses, [&text](const std::string& piece) { text += piece; });
  return text;
}

}  // namespace NZELVYR20

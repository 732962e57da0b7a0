#include "TPrinter.h"

#include <sstream>
#include <string>
#include <vector>

#include "TText.h"

namespace NZELVYR20 {

std::string TPrinter::PropertyText(const ICIMProperty& property) {
  if (property.IsArray({}) && !property.GetValue({}).IsNull()) {
    return "{" + TText::Join(property.ToStringVector(), ", ") + "}";
  }
  return property.ToString();
}

std::string TPrinter::ValueText(const TCIMValue& value) { return value.ToString(10); }

std::string TPrinter::TypeText(const TCIMValue& value) {
  const auto referencedClass = value.GetReferencedClass();
  return TypeText(value.GetType()) +
         (referencedClass ? " to " + referencedClass->GetName({}) : std::string());
}

std::string TPrinter::TypeText(TCIMValue::TCIMType type) {
  std::ostringstream text;
  text << type;
  return text.str();
}

std::string TPrinter::PathText(const ICIMInstance& instance) {
  return TText::OneLine(instance.GetReference({}).ToString());
}

std::string TPrinter::ClassMarks(const ICIMClass& cimClass) {
  std::vector<std::string> marks;
  if (cimClass.IsAbstract({})) {
    marks.emplace_back("abstract");
  }
  if (cimClass.IsAssociation({})) {
    marks.emplace_back("association");
  }
  return TText::Join(marks, ", ");
}

std::string TPrinter::ClassText(const ICIMClass& cimClass) {
  const std::string marks = ClassMarks(cimClass);
  return cimClass.GetName({}) + (marks.empty() ? "" : " (" + marks + ")");
}

}  // namespace NZELVYR20

#include "TPrinter.h"

#include <map>
#include <string>
#include <vector>

#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "JsonText.h"
#include "TCIMDateTime.h"
#include "TText.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

boost::shared_ptr<ICIMQualifier> Find(const ICIMPropertyDecl& declaration,
                                      const std::string& name) {
  bool isFound = false;
  return declaration.GetQualifier(name, isFound, {});
}

std::string TextOf(const boost::shared_ptr<ICIMQualifier>& qualifier) {
  return qualifier ? qualifier->GetValue({}).ToString(10) : std::string();
}

/// What stands after a number that the repository writes as it is.
const std::map<std::string, const char*> kUnits = {
    {"MegaHertz", " MHz"}, {"MilliVolts", " mV"}, {"MilliWattHours", " mWh"}, {"Percent", "%"}};

bool IsNumber(const ICIMProperty& property) {
  switch (property.GetType({})) {
    case TCIMValue::TCIMType::kBoolean:
    case TCIMValue::TCIMType::kString:
    case TCIMValue::TCIMType::kDateTime:
    case TCIMValue::TCIMType::kReference:
      return false;
    default:
      return !property.GetValue({}).IsNull();
  }
}

}  // namespace

std::string TPrinter::PropertyText(const ICIMProperty& property) {
  if (property.IsArray({}) && !property.GetValue({}).IsNull()) {
    return "{" + TText::Join(ElementTexts(property), ", ") + "}";
  }
  return ScalarText(property);
}

std::string TPrinter::ScalarText(const ICIMProperty& property) {
  std::string text = property.ToString();
  if (property.GetValue({}).IsReference()) return TText::OneLine(text);
  if (!IsNumber(property)) return text;
  const auto declaration = property.GetDeclaration({});
  if (Find(*declaration, "Values")) return text;
  const auto units = Find(*declaration, "Units");
  if (const auto unit = kUnits.find(TextOf(units)); unit != kUnits.end()) {
    return text + unit->second;
  }
  const auto fixed = Find(*declaration, "DisplayFixedUnits");
  if (units && fixed && TextOf(fixed).empty()) {
    return ValueText(property.GetValue({})) + ' ' + TextOf(units);
  }
  return !units && TextOf(Find(*declaration, "Base")) == "16" ? "0x" + text : text;
}

std::vector<std::string> TPrinter::ElementTexts(const ICIMProperty& property) {
  try {
    return property.ToStringVector();
  } catch (const TVYRException& refusal) {
    if (refusal.GetStatusCode() != TVYRStatusCode::kTypeMismatch) throw;
  }
  std::vector<std::string> texts;
  for (const auto& element : static_cast<const std::vector<TCIMValue>&>(property.GetValue({}))) {
    texts.push_back(ValueText(element));
  }
  return texts;
}

std::string TPrinter::ValueText(const TCIMValue& value) { return value.ToString(10); }

std::string TPrinter::StoredText(const TCIMValue& value) {
  if (value.IsArray()) return JsonValue(value);
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kDateTime:
      return static_cast<TCIMDateTime>(value).ToCIMString();
    case TCIMValue::TCIMType::kReference:
      return TText::OneLine(value.ToString(10));
    default:
      return value.ToString(10);
  }
}

std::string TPrinter::TypeText(const TCIMValue& value) {
  const auto referencedClass = value.GetReferencedClass();
  return NZELVYR20::TypeText(value.GetType()) +
         (referencedClass ? " to " + referencedClass->GetName({}) : std::string());
}

std::string TPrinter::PathText(const ICIMInstance& instance) {
  return TText::OneLine(instance.GetReference({}).ToString());
}

std::string TPrinter::ClassMarks(const ICIMClass& cimClass) {
  std::vector<std::string> marks;
  if (cimClass.IsAbstract({})) marks.emplace_back("abstract");
  if (cimClass.IsAssociation({})) marks.emplace_back("association");
  return TText::Join(marks, ", ");
}

std::string TPrinter::ClassText(const ICIMClass& cimClass) {
  const std::string marks = ClassMarks(cimClass);
  return cimClass.GetName({}) + (marks.empty() ? "" : " (" + marks + ")");
}

}  // namespace NZELVYR20

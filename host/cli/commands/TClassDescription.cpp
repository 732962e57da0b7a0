#include "TClassDescription.h"

#include <string>
#include <utility>
#include <vector>

#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "TPrinter.h"
#include "TTable.h"
#include "TText.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kIndent = 2;
constexpr std::size_t kDetailIndent = 4;  ///< within a row
constexpr std::size_t kWidth = 96;        ///< of a row

/// "Key" for a plain TRUE, else "MaxLen = 64".
std::string QualifierText(const ICIMQualifier& qualifier) {
  const TCIMValue& value = qualifier.GetValue({});
  return qualifier.GetName({}) +
         (value == TCIMValue(true) ? "" : " = " + TPrinter::ValueText(value));
}

std::vector<std::string> QualifierTexts(const ICIMNamedElement& element) {
  std::vector<std::string> texts;
  for (const auto& qualifier : ListQualifiers(element)) texts.push_back(QualifierText(*qualifier));
  return texts;
}

/// As rows of one cell, which does not widen the columns of the rows around it. Value maps can
/// make a text long.
void AddText(const std::string& text, std::size_t indent, TTable& table) {
  std::size_t margin = indent;
  for (const auto& line : TText::Wrap(text, kWidth - indent - kIndent)) {
    table.AddRow({std::string(margin, ' ') + line});
    margin = indent + kIndent;
  }
}

void AddQualifiers(const ICIMNamedElement& element, std::size_t indent, TTable& table) {
  for (const auto& text : QualifierTexts(element)) AddText(text, indent, table);
}

std::string Section(const std::string& title, const TTable& table) {
  const std::string body = table.ToString();
  return body.empty() ? body : "\n" + title + "\n" + body;
}

std::string NameOf(const boost::shared_ptr<ICIMClass>& cimClass) {
  return cimClass ? cimClass->GetName({}) : std::string();
}

std::string DefaultText(const TCIMValue& value) {
  return value.IsNull() ? std::string() : "= " + TPrinter::ValueText(value);
}

std::string ParameterText(const ICIMParameterDecl& parameter) {
  const std::string qualifiers = TText::Join(QualifierTexts(parameter), ", ");
  return TypeText(parameter.GetType({})) + " " + parameter.GetName({}) +
         (qualifiers.empty() ? "" : ": " + qualifiers);
}

void AddMethod(ICIMMethodDecl& method, TTable& table) {
  const auto parameters = ListParameterDecls(method);
  table.AddRow({method.GetName({}) + (parameters.empty() ? "()" : "(...)"),
                TypeText(method.GetReturnType({})), NameOf(method.GetClass({}))});
  AddQualifiers(method, kDetailIndent, table);
  for (const auto& parameter : parameters) AddText(ParameterText(*parameter), kDetailIndent, table);
}

}  // namespace

TClassDescription::TClassDescription(boost::shared_ptr<ICIMClass> cimClass)
    : class_(std::move(cimClass)) {}

std::string TClassDescription::ToString() const {
  return Header() + Qualifiers() + Properties() + Methods();
}

std::string TClassDescription::Header() const {
  std::vector<std::string> chain;
  for (auto above = class_->GetSuperClass({}); above && !above->IsRootClass({});
       above = above->GetSuperClass({})) {
    chain.push_back(above->GetName({}));
  }
  TTable table(0);
  table.AddRow({"Class", TPrinter::ClassText(*class_)});
  std::string label = "Superclasses";
  for (const auto& line : TText::Wrap(TText::Join(chain, " < "), kWidth - label.size())) {
    table.AddRow({std::exchange(label, ""), line});
  }
  return table.ToString();
}

std::string TClassDescription::Qualifiers() const {
  TTable table(kIndent);
  AddQualifiers(*class_, 0, table);
  return Section("Qualifiers", table);
}

std::string TClassDescription::Properties() const {
  TTable table(kIndent);
  for (const auto& property : ListPropertyDecls(*class_)) {
    const TCIMValue& value = property->GetDefaultValue({});
    table.AddRow({property->GetName({}), TPrinter::TypeText(value), NameOf(property->GetClass({})),
                  DefaultText(value)});
    AddQualifiers(*property, kDetailIndent, table);
  }
  return Section("Properties", table);
}

std::string TClassDescription::Methods() const {
  TTable table(kIndent);
  for (const auto& method : ListMethodDecls(*class_)) AddMethod(*method, table);
  return Section("Methods", table);
}

}  // namespace NZELVYR20

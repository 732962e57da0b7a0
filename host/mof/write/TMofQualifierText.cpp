#include "TMofQualifierText.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <utility>
#include <vector>

#include "FoldName.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "MofQualifierWords.h"
#include "TMofValueText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kIndent = 4;

using TFlavor = ICIMQualifierDecl::EFlavor;
using TQualifiers = std::vector<boost::shared_ptr<ICIMQualifier>>;
using TWords = std::vector<std::string>;

std::string Join(const TWords& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
  return text;
}

/// Readers ask each class for these, whatever its superclass has.
constexpr std::size_t kKindsOfClasses = 2;

/// What says which kind of element it is comes first, the rest as it came.
std::size_t Rank(const ICIMQualifier& qualifier) {
  constexpr std::array<const char*, 5> kFirst = {"association", "indication", "abstract", "key",
                                                 "override"};
  const auto* const found =
      std::find(kFirst.begin(), kFirst.end(), FoldName(qualifier.GetName({})));
  return static_cast<std::size_t>(found - kFirst.begin());
}

TQualifiers SelectQualifiers(const ICIMNamedElement& element, bool withPropagated) {
  TQualifiers qualifiers = ListQualifiers(element);
  if (!withPropagated) {
    const auto isPropagated = [](const auto& qualifier) {
      return qualifier->GetPropagated({}) && Rank(*qualifier) >= kKindsOfClasses;
    };
    qualifiers.erase(std::remove_if(qualifiers.begin(), qualifiers.end(), isPropagated),
                     qualifiers.end());
  }
  std::stable_sort(qualifiers.begin(), qualifiers.end(),
                   [](const auto& left, const auto& right) { return Rank(*left) < Rank(*right); });
  return qualifiers;
}

void AppendQualifier(std::string& text, std::string head, const ICIMQualifier& qualifier,
                     const char* end, std::size_t margin) {
  const TCIMValue& value = qualifier.GetValue({});
  const bool isBraced = value.IsArray() && !value.IsNull();
  const TFlavor flavor = qualifier.GetFlavor({});
  const std::string flavors =
      Join(GetMofFlavorWords(flavor, flavor ^ qualifier.GetDeclaration({})->GetFlavor({})), " ");
  head += qualifier.GetName({}) + (isBraced ? "" : "(");
  TMofValueText::Append(text, std::move(head), value,
                        (isBraced ? "" : ")") + (flavors.empty() ? "" : " : " + flavors) + end,
                        margin);
}

}  // namespace

void TMofQualifierText::AppendDeclaration(std::string& text, const ICIMQualifierDecl& declaration) {
  std::ostringstream head;
  head << "Qualifier " << declaration.GetName({}) << " : " << declaration.GetType({}) << " = ";
  TMofValueText::Append(text, head.str(), declaration.GetDefaultValue({}), ",", kIndent);
  const std::string scopes = Join(GetMofScopeWords(declaration.GetScope({})), ", ");
  if (!scopes.empty()) text += "\n    Scope(" + scopes + "),";
  const TFlavor every = ICIMQualifierDecl::kOverridable | ICIMQualifierDecl::kToSubclass |
                        ICIMQualifierDecl::kTranslatable;
  text +=
      "\n    Flavor(" + Join(GetMofFlavorWords(declaration.GetFlavor({}), every), ", ") + ");\n";
}

void TMofQualifierText::AppendList(std::string& text, const ICIMNamedElement& element,
                                   bool withPropagated, std::size_t margin) {
  const TQualifiers qualifiers = SelectQualifiers(element, withPropagated);
  for (const auto& qualifier : qualifiers) {
    const bool isFirst = qualifier == qualifiers.front();
    const bool isLast = qualifier == qualifiers.back();
    AppendQualifier(text, std::string(margin, ' ') + (isFirst ? "[" : " "), *qualifier,
                    isLast ? "]" : ",", margin + 1 + kIndent);
    text += '\n';
  }
}

}  // namespace NZELVYR20

#include "TMofQualifiers.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "FoldName.h"
#include "ICIMQualifier.h"
#include "ListElements.h"
#include "MofQualifierWords.h"
#include "TMofFault.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using D = ICIMQualifierDecl;
using T = TCIMValue::TCIMType;

D::EScope GetScope(const std::vector<TMofName>& words) {
  D::EScope scope = D::kNoScope;
  for (const TMofName& word : words) {
    scope = scope | FindMofScope(word.GetText()).value_or(D::kNoScope);
  }
  return scope;
}

D::EFlavor ApplyFlavors(D::EFlavor flavor, const std::vector<TMofName>& words) {
  for (const TMofName& word : words) {
    const auto found = FindMofFlavor(word.GetText());
    if (found) flavor = found->isSet ? flavor | found->flavor : flavor - found->flavor;
  }
  return flavor;
}

/// What MOF leaves unsaid.
constexpr D::EFlavor kDefaultFlavor = D::kOverridable | D::kToSubclass;

constexpr std::uint64_t kLargestSigned = std::numeric_limits<std::int64_t>::max();

T GetLiteralType(const TMofLiteral& literal) {
  switch (literal.kind) {
    case TMofLiteral::kBoolean:
      return T::kBoolean;
    case TMofLiteral::kInteger:
      return literal.number > kLargestSigned && !literal.isNegative ? T::kUInt64 : T::kSInt64;
    case TMofLiteral::kReal:
      return T::kReal64;
    case TMofLiteral::kCharacter:
      return T::kChar16;
    default:
      return T::kString;
  }
}

T GuessType(const TMofQualifier& qualifier) {
  if (!qualifier.value) return T::kBoolean;
  const TMofValue& value = *qualifier.value;
  const T element = value.IsEmpty() ? T(T::kString) : GetLiteralType(*value.begin());
  return value.IsArray() ? T::ArrayOf(element) : element;
}

TCIMValue MakeValue(const TMofValues& values, const TMofQualifier& qualifier, T type) {
  if (qualifier.value) return values.Make(*qualifier.value, type);
  return type == T::kBoolean ? TCIMValue(true) : TCIMValue::Null(type);
}

/// The repository keeps an overriding declaration apart from the one that it overrides.
void PassDown(ICIMNamedElement& element, const ICIMNamedElement& overridden) {
  for (const auto& qualifier : ListQualifiers(overridden)) {
    const D::EFlavor flavor = qualifier->GetFlavor({});
    if ((flavor & D::kToSubclass) == 0) continue;
    element.AllocateQualifier(qualifier->GetDeclaration({}), qualifier->GetValue({}), flavor, {})
        ->AddToClassOrProperty({});
  }
}

}  // namespace

TMofQualifiers::TMofQualifiers(boost::shared_ptr<ICIMNamespace> nameSpace,
                               TMofDiagnostics& diagnostics, TMofSummary& summary)
    : namespace_(std::move(nameSpace)),
      diagnostics_(diagnostics),
      summary_(summary),
      values_(namespace_) {}

bool TMofQualifiers::Has(const std::vector<TMofQualifier>& qualifiers, const std::string& name) {
  return std::any_of(qualifiers.begin(), qualifiers.end(), [&name](const TMofQualifier& qualifier) {
    return FoldName(qualifier.name.GetText()) == name;
  });
}

void TMofQualifiers::Declare(const std::vector<TMofQualifierDeclaration>& declarations) {
  for (const TMofQualifierDeclaration& declaration : declarations) {
    const TMofName& name = declaration.name;
    try {
      DeclareOne(declaration);
    } catch (const TMofFault& fault) {
      ++summary_.qualifiers.skipped;
      diagnostics_.Error(fault.GetPlace(), "qualifier " + name.GetText() + ": " + fault.what());
    } catch (const TVYRException& refusal) {
      ++summary_.qualifiers.refused;
      summary_.refusals.push_back({name.GetText(), refusal.what()});
      diagnostics_.Error(name.GetPlace(),
                         "qualifier " + name.GetText() + " is refused: " + refusal.what());
    }
  }
}

void TMofQualifiers::DeclareOne(const TMofQualifierDeclaration& declaration) {
  const TMofName& name = declaration.name;
  if (namespace_->GetQualifierDecl(name.GetText(), {})) {
    ++summary_.qualifiers.skipped;
    return diagnostics_.Note(name.GetPlace(), "the qualifier " + name.GetText() +
                                                  " is declared already, and stays as it is");
  }
  const TCIMValue defaultValue =
      declaration.defaultValue ? values_.Make(*declaration.defaultValue, declaration.type.type)
                               : TCIMValue::Null(declaration.type.type);
  const TDeclarationPtr added =
      namespace_->AllocateQualifierDecl(name.GetText(), defaultValue, GetScope(declaration.scopes),
                                        ApplyFlavors(kDefaultFlavor, declaration.flavors), {});
  added->AddToNamespace({});
  places_.emplace(added, name.GetPlace());
  ++summary_.qualifiers.declared;
}

TMofQualifiers::TDeclarationPtr TMofQualifiers::DeclareUndeclared(const TMofQualifier& qualifier) {
  const std::string name = qualifier.name.GetText();
  const T type = GuessType(qualifier);
  diagnostics_.Warning(
      qualifier.name.GetPlace(),
      "the qualifier " + name + " is declared nowhere; it is taken for a " + TypeText(type));
  TDeclarationPtr added =
      namespace_->AllocateQualifierDecl(name, TCIMValue::Null(type), D::kAny, kDefaultFlavor, {});
  added->AddToNamespace({});
  guessed_.insert(added);
  ++summary_.qualifiers.declared;
  return added;
}

TMofQualifiers::TDeclarationPtr TMofQualifiers::FindDeclaration(const TMofQualifier& qualifier) {
  TDeclarationPtr declaration = namespace_->GetQualifierDecl(qualifier.name.GetText(), {});
  if (!declaration) return DeclareUndeclared(qualifier);
  const auto found = places_.find(declaration);
  if (found == places_.end()) return declaration;
  const TMofPlace place = qualifier.name.GetPlace();
  if (diagnostics_.IsFurtherDown(found->second, place)) {
    diagnostics_.Note(place,
                      "the qualifier " + qualifier.name.GetText() + " is declared further down");
    places_.erase(found);  // Once is enough.
  }
  return declaration;
}

void TMofQualifiers::Attach(ICIMNamedElement& element, const std::vector<TMofQualifier>& qualifiers,
                            const ICIMNamedElement* overridden) {
  if (overridden != nullptr) PassDown(element, *overridden);
  std::vector<std::string> names;
  names.reserve(qualifiers.size());
  for (const TMofQualifier& qualifier : qualifiers) {
    const std::string name = FoldName(qualifier.name.GetText());
    const auto first = std::find(names.begin(), names.end(), name) - names.begin();
    const bool isNew = first == static_cast<std::ptrdiff_t>(names.size());
    AttachOne(element, qualifier, isNew ? nullptr : &qualifiers[static_cast<std::size_t>(first)]);
    names.push_back(name);
  }
}

void TMofQualifiers::AttachOne(ICIMNamedElement& element, const TMofQualifier& qualifier,
                               const TMofQualifier* before) {
  const std::string name = qualifier.name.GetText();
  const TDeclarationPtr declaration = FindDeclaration(qualifier);
  const T type = declaration->GetType({});
  try {
    const TCIMValue value = MakeValue(values_, qualifier, type);
    if (before == nullptr) return AttachValue(element, qualifier, declaration, value);
    if (MakeValue(values_, *before, type) == value) return;
    diagnostics_.Warning(qualifier.name.GetPlace(),
                         "the qualifier " + name + " has a value already, which stays");
  } catch (const TMofFault& fault) {
    if (guessed_.count(declaration) == 0) throw;
    diagnostics_.Warning(fault.GetPlace(),
                         "the qualifier " + name + " is left out: " + fault.what());
  }
}

void TMofQualifiers::AttachValue(ICIMNamedElement& element, const TMofQualifier& qualifier,
                                 const TDeclarationPtr& declaration, const TCIMValue& value) {
  const auto attached = element.AllocateQualifier(
      declaration, value, ApplyFlavors(declaration->GetFlavor({}), qualifier.flavors), {});
  try {
    attached->AddToClassOrProperty({});
  } catch (const TVYRException& refusal) {
    if (refusal.GetStatusCode() != TVYRStatusCode::kQualifierConflict) throw;
    diagnostics_.Note(qualifier.name.GetPlace(),
                      "the qualifier " + qualifier.name.GetText() +
                          " stays as it is, since it may not be overridden");
  }
}

}  // namespace NZELVYR20

#include "TMofFeatures.h"

#include <string>
#include <utility>

#include "DeclarationText.h"
#include "FindOrNothing.h"
#include "FoldName.h"
#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "TMofFault.h"
#include "TVYRException.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

boost::shared_ptr<ICIMPropertyDecl> FindProperty(const ICIMClass& cimClass,
                                                 const std::string& name) {
  return FindOrNothing([&] { return cimClass.GetPropertyDecl(name, {}); });
}

bool IsOverride(const std::vector<TMofQualifier>& qualifiers) {
  return TMofQualifiers::Has(qualifiers, "override");
}

/// What stands there for a class that is not known.
constexpr const char* kAnyClass = "object";

template <class TDeclaration>
std::string DescribeMember(const TDeclaration& declaration, TCIMValue::TCIMType type) {
  return DeclarationText(declaration.GetClass({})->GetName({}), declaration.GetName({}),
                         TypeText(type));
}

std::string DescribeConflict(const std::string& given, const std::string& inherited,
                             bool isOverride) {
  return given + (isOverride ? " cannot override " + inherited
                             : " cannot replace " + inherited + " without Override");
}

TMofFault DeclaredTwice(const TMofName& name) {
  return {name.GetPlace(), name.GetText() + " is declared twice"};
}

/// Methods are not left out without a status, as properties are.
TMofFault ExplainRefusal(const TMofMethod& method, const ICIMMethodDecl& declaration,
                         const ICIMMethodDecl& existing) {
  if (existing.GetClass({}) == declaration.GetClass({})) return DeclaredTwice(method.name);
  return {method.name.GetPlace(),
          DescribeConflict(DescribeMember(declaration, declaration.GetReturnType({})),
                           DescribeMember(existing, existing.GetReturnType({})),
                           IsOverride(method.qualifiers))};
}

}  // namespace

TMofFeatures::TMofFeatures(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                           TMofQualifiers& qualifiers, TMofReferenceClasses& referenceClasses,
                           TFindClass findClass, TIsKnown isKnown)
    : diagnostics_(diagnostics),
      qualifiers_(qualifiers),
      referenceClasses_(referenceClasses),
      values_(std::move(nameSpace)),
      findClass_(std::move(findClass)),
      isKnown_(std::move(isKnown)) {}

void TMofFeatures::Declare(ICIMClass& cimClass, const TMofProperty& property) {
  const std::string name = property.name.GetText();
  boost::shared_ptr<ICIMPropertyDecl> overridden;
  if (IsOverride(property.qualifiers)) {
    overridden = FindProperty(cimClass, name);
    NoteIfNothingOverridden(property.name, overridden.get());
  }

  CheckType(property.type);
  if (property.type.type == TCIMValue::TCIMType::kReference && !cimClass.IsAssociation({})) {
    throw TMofFault(property.type.place,
                    "only an association may have a reference such as " + name);
  }
  const auto declaration = cimClass.AllocatePropertyDecl(name, MakeDefault(property), {});
  // Qualifiers first: Override decides how the class takes the declaration.
  qualifiers_.Attach(*declaration, property.qualifiers, overridden.get());
  declaration->AddToClass({});
  const auto kept = FindProperty(cimClass, name);
  if (kept && kept != declaration) ReportLeftOut(property, *declaration, *kept);
}

void TMofFeatures::ReportLeftOut(const TMofProperty& property, const ICIMPropertyDecl& declaration,
                                 const ICIMPropertyDecl& kept) {
  const TMofName& name = property.name;
  if (kept.GetClass({}) == declaration.GetClass({})) {
    return diagnostics_.Note(
        name.GetPlace(), "the property " + name.GetText() + " is named twice; the first one stays");
  }
  diagnostics_.Warning(
      name.GetPlace(),
      DescribeConflict(DescribeMember(declaration, declaration.GetType({})),
                       DescribeMember(kept, kept.GetType({})), IsOverride(property.qualifiers)) +
          ", and is left out");
}

/// Says what the repository will not keep of the type.
void TMofFeatures::CheckType(const TMofType& type) {
  if (!type.arraySize || std::exchange(isSizeNoted_, true)) return;
  diagnostics_.Note(type.place, "an array's size is not kept; said once only");
}

void TMofFeatures::NoteIfNothingOverridden(const TMofName& name, const void* overridden) {
  if (overridden == nullptr) {
    diagnostics_.Note(name.GetPlace(), name.GetText() + " overrides nothing: no superclass has it");
  }
}

TCIMValue TMofFeatures::MakeDefault(const TMofProperty& property) const {
  const TCIMValue::TCIMType type = property.type.type;
  if (type == TCIMValue::TCIMType::kReference) return MakeReferenceDefault(property);
  return property.defaultValue ? values_.Make(*property.defaultValue, type) : TCIMValue::Null(type);
}

TCIMValue TMofFeatures::MakeReferenceDefault(const TMofProperty& property) const {
  const auto referencedClass = findClass_(property.type.referencedClass);
  if (property.defaultValue) {
    const TCIMValue value = values_.Make(*property.defaultValue, property.type.type);
    if (!value.IsNull()) return {static_cast<TCIMReference>(value), referencedClass};
  }
  return TCIMValue::NullReference(referencedClass);
}

void TMofFeatures::Declare(ICIMClass& cimClass, const TMofMethod& method) {
  boost::shared_ptr<ICIMMethodDecl> overridden;
  if (IsOverride(method.qualifiers)) {
    overridden = cimClass.GetMethodDecl(method.name.GetText(), {});
    NoteIfNothingOverridden(method.name, overridden.get());
  }

  const auto declaration = cimClass.AllocateMethodDecl(method.name.GetText(), method.type.type, {});
  CheckResultOrParameter(*declaration, "", method.type);
  qualifiers_.Attach(*declaration, method.qualifiers, overridden.get());
  for (const TMofParameter& parameter : method.parameters) {
    DeclareParameter(*declaration, parameter, overridden.get());
  }
  try {
    declaration->AddToClass({});
  } catch (const TVYRException&) {
    const auto existing = cimClass.GetMethodDecl(method.name.GetText(), {});
    if (existing) throw ExplainRefusal(method, *declaration, *existing);
    throw;
  }
}

void TMofFeatures::DeclareParameter(ICIMMethodDecl& method, const TMofParameter& parameter,
                                    const ICIMMethodDecl* overridden) {
  const std::string name = parameter.name.GetText();
  boost::shared_ptr<ICIMParameterDecl> inherited;
  if (overridden != nullptr) {
    inherited = FindOrNothing([&] { return overridden->GetParameterDecl(name, {}); });
  }

  CheckResultOrParameter(method, name, parameter.type);
  const auto declaration = method.AllocateParameterDecl(name, parameter.type.type, {});
  qualifiers_.Attach(*declaration, parameter.qualifiers, inherited.get());
  try {
    declaration->AddToMethod({});
  } catch (const TVYRException& refusal) {
    if (refusal.GetStatusCode() != TVYRStatusCode::kAlreadyDefined) throw;
    throw DeclaredTwice(parameter.name);
  }
}

void TMofFeatures::CheckResultOrParameter(const ICIMMethodDecl& method,
                                          const std::string& parameter, const TMofType& type) {
  CheckType(type);
  if (type.type.GetElementType() != TCIMValue::TCIMType::kReference) return;
  const TMofName& name = type.referencedClass;
  referenceClasses_.Set(method, parameter, name.GetText());
  if (FoldName(name.GetText()) == kAnyClass || isKnown_(name.GetText())) return;
  diagnostics_.Warning(name.GetPlace(), "there is no class " + name.GetText());
}

}  // namespace NZELVYR20

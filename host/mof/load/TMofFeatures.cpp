#include "TMofFeatures.h"

#include <string>
#include <utility>

#include "FindOrNothing.h"
#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"

namespace NZELVYR20 {
namespace {

boost::shared_ptr<ICIMPropertyDecl> FindProperty(const ICIMClass& cimClass,
                                                 const std::string& name) {
  return FindOrNothing([&] { return cimClass.GetPropertyDecl(name, {}); });
}

bool IsOverride(const std::vector<TMofQualifier>& qualifiers) {
  return TMofQualifiers::Has(qualifiers, "override");
}

}  // namespace

TMofFeatures::TMofFeatures(boost::shared_ptr<ICIMNamespace> nameSpace, TMofDiagnostics& diagnostics,
                           TMofQualifiers& qualifiers, TFindClass findClass)
    : diagnostics_(diagnostics),
      qualifiers_(qualifiers),
      values_(std::move(nameSpace)),
      findClass_(std::move(findClass)) {}

void TMofFeatures::Declare(ICIMClass& cimClass, const TMofProperty& property) {
  const std::string& name = property.name.text;
  boost::shared_ptr<ICIMPropertyDecl> overridden;
  if (IsOverride(property.qualifiers)) {
    overridden = FindProperty(cimClass, name);
    NoteIfNothingOverridden(property.name, overridden.get());
  }

  const auto declaration = cimClass.AllocatePropertyDecl(name, MakeDefault(property), {});
  // Qualifiers first: Override decides how the class takes the declaration.
  qualifiers_.Attach(*declaration, property.qualifiers, overridden.get());
  declaration->AddToClass({});
  const auto kept = FindProperty(cimClass, name);
  if (kept && kept != declaration) ReportLeftOut(cimClass, property.name, *kept);
}

void TMofFeatures::ReportLeftOut(const ICIMClass& cimClass, const TMofName& name,
                                 const ICIMPropertyDecl& kept) {
  const auto owner = kept.GetClass({});
  if (owner.get() == &cimClass) {
    return diagnostics_.Note(name.place,
                             "the property " + name.text + " is named twice; the first one stays");
  }
  diagnostics_.Warning(name.place, "the property " + name.text +
                                       " is left out: that of the superclass " +
                                       (owner ? owner->GetName({}) : std::string()) +
                                       " has another type, or is not overridden");
}

void TMofFeatures::NoteIfNothingOverridden(const TMofName& name, const void* overridden) {
  if (overridden == nullptr)
    diagnostics_.Note(name.place, name.text + " overrides nothing: no superclass has it");
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
    overridden = cimClass.GetMethodDecl(method.name.text, {});
    NoteIfNothingOverridden(method.name, overridden.get());
  }

  const auto declaration = cimClass.AllocateMethodDecl(method.name.text, method.type.type, {});
  qualifiers_.Attach(*declaration, method.qualifiers, overridden.get());
  for (const TMofParameter& parameter : method.parameters)
    DeclareParameter(*declaration, parameter, overridden.get());
  declaration->AddToClass({});
}

void TMofFeatures::DeclareParameter(ICIMMethodDecl& method, const TMofParameter& parameter,
                                    const ICIMMethodDecl* overridden) {
  const std::string& name = parameter.name.text;
  boost::shared_ptr<ICIMParameterDecl> inherited;
  if (overridden != nullptr)
    inherited = FindOrNothing([&] { return overridden->GetParameterDecl(name, {}); });

  const auto declaration = method.AllocateParameterDecl(name, parameter.type.type, {});
  qualifiers_.Attach(*declaration, parameter.qualifiers, inherited.get());
  declaration->AddToMethod({});
}

}  // namespace NZELVYR20

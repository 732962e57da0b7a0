#include "TSchemaBuilder.h"

#include "ICIMClass.h"
#include "ICIMMethodDecl.h"
#include "ICIMParameterDecl.h"
#include "ICIMPropertyDecl.h"
#include "ICIMQualifier.h"
#include "TVYRException.h"

namespace NZELVYR20 {

TSchemaBuilder::TSchemaBuilder(const boost::shared_ptr<ICIMNamespace>& nameSpace)
    : namespace_(nameSpace) {}

void TSchemaBuilder::Declare(const std::vector<TQualifierRow>& rows) const {
  for (const TQualifierRow& row : rows) {
    namespace_->AllocateQualifierDecl(row.name, row.defaultValue, row.scope, row.flavor, {})
        ->AddToNamespace({});
  }
}

void TSchemaBuilder::Declare(const std::vector<TClassRow>& rows) const {
  for (const TClassRow& row : rows) DeclareClass(row);
}

void TSchemaBuilder::DeclareClass(const TClassRow& row) const {
  const boost::shared_ptr<ICIMClass> cimClass =
      namespace_->AllocateClass(row.name, namespace_->GetClass(row.superClass, {}), {});
  // Qualifiers first: a class takes references only once it is an association.
  Attach(*cimClass, row.qualifiers);
  for (const TPropertyRow& property : row.properties) DeclareProperty(*cimClass, property);
  for (const TMethodRow& method : row.methods) DeclareMethod(*cimClass, method);
  cimClass->AddToNamespace({});
}

void TSchemaBuilder::DeclareProperty(ICIMClass& cimClass, const TPropertyRow& row) const {
  const TCIMValue defaultValue =
      row.referencedClass.empty()
          ? TCIMValue::Null(row.type)
          : TCIMValue::NullReference(namespace_->GetClass(row.referencedClass, {}));
  const boost::shared_ptr<ICIMPropertyDecl> declaration =
      cimClass.AllocatePropertyDecl(row.name, defaultValue, {});
  // Qualifiers first: Override decides how the class takes the declaration.
  Attach(*declaration, row.qualifiers);
  declaration->AddToClass({});
}

void TSchemaBuilder::DeclareMethod(ICIMClass& cimClass, const TMethodRow& row) const {
  const boost::shared_ptr<ICIMMethodDecl> declaration =
      cimClass.AllocateMethodDecl(row.name, row.returnType, {});
  Attach(*declaration, row.qualifiers);
  for (const TPropertyRow& parameterRow : row.parameters) {
    const boost::shared_ptr<ICIMParameterDecl> parameter =
        declaration->AllocateParameterDecl(parameterRow.name, parameterRow.type, {});
    Attach(*parameter, parameterRow.qualifiers);
    parameter->AddToMethod({});
  }
  declaration->AddToClass({});
}

void TSchemaBuilder::Attach(ICIMNamedElement& element,
                            const std::vector<TQualifierUse>& qualifiers) const {
  for (const TQualifierUse& use : qualifiers) {
    const boost::shared_ptr<ICIMQualifierDecl> declaration =
        namespace_->GetQualifierDecl(use.name, {});
    if (!declaration) throw TVYRException(TVYRStatusCode::kNotFound);
    element.AllocateQualifier(declaration, use.value, {})->AddToClassOrProperty({});
  }
}

}  // namespace NZELVYR20

#include "ApplyChanges.h"

#include <string>
#include <utility>

#include "ICIMClass.h"
#include "ICIMPropertyDecl.h"
#include "ListElements.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

using TNamespacePtr = boost::shared_ptr<ICIMNamespace>;

/// A value of another namespace as one of this. References hold on to their classes.
TCIMValue BringOver(const TCIMValue& value, const TNamespacePtr& nameSpace) {
  const TCIMValue::TCIMType type = value.GetType();
  if (type.GetElementType() != TCIMValue::TCIMType::kReference) return value;
  if (value.IsNull()) return TCIMValue::Null(type);
  if (!type.IsArray()) {
    return TCIMReference::Parse(static_cast<TCIMReference>(value).ToString(), nameSpace);
  }
  std::vector<TCIMValue> elements;
  for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
    elements.push_back(BringOver(element, nameSpace));
  }
  return TCIMValue::Array(TCIMValue::TCIMType::kReference, std::move(elements));
}

void SetAnew(ICIMProperty& property, const TCIMValue& value) {
  const TCIMValue earlier = property.GetValue({});
  property.SetValue(value, {});
  property.SetPrevValue(earlier);
}

void Add(const TNamespacePtr& nameSpace, ICIMInstance& model) {
  const auto cimClass = nameSpace->GetClass(model.GetClass({})->GetName({}), {});
  const auto instance = cimClass->AllocateInstance({});
  for (const auto& property : ListProperties(model)) {
    if (property->IsDefaultValue({})) continue;
    instance->SetPropertyValue(property->GetDeclaration({})->GetName({}),
                               BringOver(property->GetValue({}), nameSpace), {});
  }
  instance->AddToNamespace({});
}

/// What an association refers to has to be there before it.
void AddAll(const TNamespacePtr& nameSpace, const std::vector<TInstanceChange>& changes,
            bool areAssociations) {
  for (const TInstanceChange& change : changes) {
    if (!change.before && change.after->GetClass({})->IsAssociation({}) == areAssociations) {
      Add(nameSpace, *change.after);
    }
  }
}

}  // namespace

void ApplyChanges(const TNamespacePtr& nameSpace, const std::vector<TInstanceChange>& changes) {
  for (const TInstanceChange& change : changes) {
    if (!change.after) change.before->Delete({});
    for (const TPropertyChange& property : change.properties) {
      SetAnew(*property.before, BringOver(property.after->GetValue({}), nameSpace));
    }
  }
  AddAll(nameSpace, changes, false);
  AddAll(nameSpace, changes, true);
}

}  // namespace NZELVYR20

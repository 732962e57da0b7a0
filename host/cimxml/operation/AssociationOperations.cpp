#include <utility>

#include "AskedInstances.h"
#include "AssociationSearch.h"
#include "Operations.h"

namespace NZELVYR20 {
namespace {

template <class TWrite>
TResult ObjectsOf(TFoundObjects found, const TWrite& write) {
  return {[found = std::move(found), write](TXmlWriter&, TElementWriter& elements) {
            for (const auto& instance : found.instances) write(elements, *instance);
            for (const auto& cimClass : found.classes) write(elements, *cimClass);
          },
          {}};
}

TResult ObjectsWithPath(const TCall& call, TFoundObjects found) {
  TElementForm form = InstanceForm(call.arguments);
  form.qualifiers = call.arguments.Flag("IncludeQualifiers", false);
  return ObjectsOf(std::move(found), [form](TElementWriter& elements, auto& element) {
    elements.WriteObjectWithPath(element, form);
  });
}

TResult PathsOf(TFoundObjects found) {
  return ObjectsOf(std::move(found), [](TElementWriter& elements, auto& element) {
    elements.WriteObjectPath(element);
  });
}

TResult Associators(const TCall& call) {
  return ObjectsWithPath(call, FindAssociators(call, "ObjectName"));
}

TResult AssociatorNames(const TCall& call) { return PathsOf(FindAssociators(call, "ObjectName")); }

TResult References(const TCall& call) {
  return ObjectsWithPath(call, FindReferences(call, "ObjectName"));
}

TResult ReferenceNames(const TCall& call) { return PathsOf(FindReferences(call, "ObjectName")); }

}  // namespace

std::vector<TOperation> AssociationOperations() {
  return {
      {"Associators",
       {{"ObjectName", EForm::kObject, true},
        {"AssocClass", EForm::kClass},
        {"ResultClass", EForm::kClass},
        {"Role", EForm::kText},
        {"ResultRole", EForm::kText},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag},
        {"PropertyList", EForm::kNames}},
       Associators},
      {"AssociatorNames",
       {{"ObjectName", EForm::kObject, true},
        {"AssocClass", EForm::kClass},
        {"ResultClass", EForm::kClass},
        {"Role", EForm::kText},
        {"ResultRole", EForm::kText}},
       AssociatorNames},
      {"References",
       {{"ObjectName", EForm::kObject, true},
        {"ResultClass", EForm::kClass},
        {"Role", EForm::kText},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag},
        {"PropertyList", EForm::kNames}},
       References},
      {"ReferenceNames",
       {{"ObjectName", EForm::kObject, true},
        {"ResultClass", EForm::kClass},
        {"Role", EForm::kText}},
       ReferenceNames},
  };
}

}  // namespace NZELVYR20

#include <algorithm>
#include <utility>

#include "AskedInstances.h"
#include "AssociationSearch.h"
#include "GivePiece.h"
#include "Operations.h"
#include "TCimFailure.h"
#include "TQuery.h"

namespace NZELVYR20 {
namespace {

/// What all of them have; those of a query without the two of the filter.
std::vector<TParameter> WithPulling(std::vector<TParameter> parameters, bool hasFilter = true) {
  if (hasFilter) {
    parameters.push_back({"FilterQueryLanguage", EForm::kText});
    parameters.push_back({"FilterQuery", EForm::kText});
  }
  parameters.push_back({"OperationTimeout", EForm::kNumber});
  parameters.push_back({"ContinueOnError", EForm::kFlag});
  parameters.push_back({"MaxObjectCount", EForm::kNumber});
  return parameters;
}

/// An enumeration as the call asks for it, before anything is looked for.
TEnumeration Begin(const TCall& call, EPulled form) {
  if (call.arguments.Flag("ContinueOnError", false)) {
    throw TCimFailure(ECimStatus::kContinuationOnErrorNotSupported, "an error ends an enumeration");
  }
  TEnumeration enumeration;
  enumeration.form = form;
  enumeration.timeout = call.enumerations.GetTimeout(call.arguments.Number("OperationTimeout"));
  enumeration.nameSpace = call.place.nameSpace;
  return enumeration;
}

TResult Open(const TCall& call, TEnumeration enumeration) {
  const std::size_t most = call.arguments.Number("MaxObjectCount").value_or(0);
  return GiveFirstPiece(call.enumerations, std::move(enumeration), most);
}

template <class TFind>
TResult OpenUnfiltered(const TCall& call, EPulled form, const TFind& find) {
  TEnumeration enumeration = Begin(call, form);
  if (call.arguments.Text("FilterQueryLanguage") || call.arguments.Text("FilterQuery")) {
    throw TCimFailure(ECimStatus::kFilteredEnumerationNotSupported, "enumerations have no filters");
  }
  enumeration.elementForm = InstanceForm(call.arguments);
  enumeration.instances = find(enumeration.elementForm);
  return Open(call, std::move(enumeration));
}

TInstanceList ListAsked(const TCall& call, TElementForm& form) {
  const auto cimClass = call.paths.ReadClass(call.arguments.Get("ClassName"));
  if (!call.arguments.Flag("DeepInheritance", true)) form.RestrictTo(*cimClass);
  return ListInstances(*cimClass, true);
}

template <EPulled form>
TResult OpenEnumerate(const TCall& call) {
  return OpenUnfiltered(call, form,
                        [&](TElementForm& written) { return ListAsked(call, written); });
}

/// Here an instance that is not there is a failure.
template <EPulled form>
TResult OpenAssociators(const TCall& call) {
  return OpenUnfiltered(call, form, [&](TElementForm&) {
    FindAskedInstance(call);
    return FindAssociators(call, "InstanceName").instances;
  });
}

template <EPulled form>
TResult OpenReferences(const TCall& call) {
  return OpenUnfiltered(call, form, [&](TElementForm&) {
    FindAskedInstance(call);
    return FindReferences(call, "InstanceName").instances;
  });
}

TResult OpenQueryInstances(const TCall& call) {
  TEnumeration enumeration = Begin(call, EPulled::kInstances);
  const TQuery query(*call.arguments.Text("FilterQueryLanguage"),
                     *call.arguments.Text("FilterQuery"), call.place.nameSpace);
  enumeration.elementForm = query.GetForm();
  enumeration.instances = query.Select();
  TResult result = Open(call, std::move(enumeration));
  if (!call.arguments.Flag("ReturnQueryResultClass", false)) return result;
  result.parameters = [query, others = std::move(result.parameters)](TXmlWriter& xml,
                                                                     TElementWriter& elements) {
    others(xml, elements);
    xml.WriteElement("PARAMVALUE", {{"NAME", "QueryResultClass"}},
                     [&] { elements.WriteClass(*query.GetClass(), query.GetForm()); });
  };
  return result;
}

}  // namespace

std::vector<TOperation> OpenOperations() {
  const TParameter origin{"InstanceName", EForm::kInstance, true};
  const TParameter assocClass{"AssocClass", EForm::kClass};
  const TParameter resultClass{"ResultClass", EForm::kClass};
  const TParameter role{"Role", EForm::kText};
  const TParameter resultRole{"ResultRole", EForm::kText};
  const TParameter classOrigin{"IncludeClassOrigin", EForm::kFlag};
  const TParameter properties{"PropertyList", EForm::kNames};
  return {
      {"OpenEnumerateInstances",
       WithPulling({{"ClassName", EForm::kClass, true},
                    {"DeepInheritance", EForm::kFlag},
                    classOrigin,
                    properties}),
       OpenEnumerate<EPulled::kInstancesWithPath>},
      {"OpenEnumerateInstancePaths", WithPulling({{"ClassName", EForm::kClass, true}}),
       OpenEnumerate<EPulled::kPaths>},
      {"OpenAssociatorInstances",
       WithPulling({origin, assocClass, resultClass, role, resultRole, classOrigin, properties}),
       OpenAssociators<EPulled::kInstancesWithPath>},
      {"OpenAssociatorInstancePaths",
       WithPulling({origin, assocClass, resultClass, role, resultRole}),
       OpenAssociators<EPulled::kPaths>},
      {"OpenReferenceInstances", WithPulling({origin, resultClass, role, classOrigin, properties}),
       OpenReferences<EPulled::kInstancesWithPath>},
      {"OpenReferenceInstancePaths", WithPulling({origin, resultClass, role}),
       OpenReferences<EPulled::kPaths>},
      {"OpenQueryInstances",
       WithPulling({{"FilterQueryLanguage", EForm::kText, true},
                    {"FilterQuery", EForm::kText, true},
                    {"ReturnQueryResultClass", EForm::kFlag}},
                   false),
       OpenQueryInstances},
  };
}

}  // namespace NZELVYR20

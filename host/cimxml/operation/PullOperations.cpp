#include "GivePiece.h"
#include "Operations.h"
#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

/// An enumeration belongs to a namespace and gives its instances in one form.
template <EPulled form>
TResult Pull(const TCall& call) {
  const std::string name = *call.arguments.Text("EnumerationContext");
  const TEnumeration& enumeration = call.enumerations.Find(name);
  if (enumeration.form != form || enumeration.nameSpace != call.place.nameSpace) {
    throw TCimFailure(ECimStatus::kInvalidEnumerationContext,
                      "the enumeration was opened for another operation");
  }
  return GiveNextPiece(call.enumerations, name, *call.arguments.Number("MaxObjectCount"));
}

TResult CloseEnumeration(const TCall& call) {
  call.enumerations.Remove(*call.arguments.Text("EnumerationContext"));
  return {};
}

}  // namespace

std::vector<TOperation> PullOperations() {
  const std::vector<TParameter> pulling = {{"EnumerationContext", EForm::kText, true},
                                           {"MaxObjectCount", EForm::kNumber, true}};
  return {
      {"PullInstancesWithPath", pulling, Pull<EPulled::kInstancesWithPath>},
      {"PullInstancePaths", pulling, Pull<EPulled::kPaths>},
      {"PullInstances", pulling, Pull<EPulled::kInstances>},
      {"CloseEnumeration", {{"EnumerationContext", EForm::kText, true}}, CloseEnumeration},
  };
}

}  // namespace NZELVYR20

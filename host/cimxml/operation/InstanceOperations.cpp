#include "AskedInstances.h"
#include "ListElements.h"
#include "Operations.h"
#include "ReadValue.h"
#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

TResult GetInstance(const TCall& call) {
  const TElementForm form = InstanceForm(call.arguments);
  return ResultOf<boost::shared_ptr<ICIMInstance>>(
      {FindAskedInstance(call)}, [form](TElementWriter& elements, ICIMInstance& instance) {
        elements.WriteInstance(instance, form);
      });
}

TResult EnumerateInstances(const TCall& call) {
  TElementForm form = InstanceForm(call.arguments);
  const boost::shared_ptr<ICIMClass> cimClass =
      call.paths.ReadClass(call.arguments.Get("ClassName"));
  if (!call.arguments.Flag("DeepInheritance", true)) form.RestrictTo(*cimClass);
  return ResultOf(ListInstances(*cimClass, true),
                  [form](TElementWriter& elements, ICIMInstance& instance) {
                    elements.WriteNamedInstance(instance, form);
                  });
}

TResult EnumerateInstanceNames(const TCall& call) {
  const boost::shared_ptr<ICIMClass> cimClass =
      call.paths.ReadClass(call.arguments.Get("ClassName"));
  return ResultOf(ListInstances(*cimClass, true),
                  [](TElementWriter& elements, ICIMInstance& instance) {
                    elements.WriteInstanceName(instance);
                  });
}

TResult GetProperty(const TCall& call) {
  const std::string name = *call.arguments.Text("PropertyName");
  const boost::shared_ptr<ICIMProperty> property = FindProperty(*FindAskedInstance(call), name);
  if (!property) throw TCimFailure(ECimStatus::kNoSuchProperty, "no property " + name);
  return {[value = property->GetValue({})](TXmlWriter&, TElementWriter& elements) {
            elements.WriteValue(value);
          },
          {}};
}

}  // namespace

std::vector<TOperation> InstanceOperations() {
  return {
      {"GetInstance",
       {{"InstanceName", EForm::kInstance, true},
        {"LocalOnly", EForm::kFlag},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag},
        {"PropertyList", EForm::kNames}},
       GetInstance},
      {"EnumerateInstances",
       {{"ClassName", EForm::kClass, true},
        {"LocalOnly", EForm::kFlag},
        {"DeepInheritance", EForm::kFlag},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag},
        {"PropertyList", EForm::kNames}},
       EnumerateInstances},
      {"EnumerateInstanceNames", {{"ClassName", EForm::kClass, true}}, EnumerateInstanceNames},
      {"GetProperty",
       {{"InstanceName", EForm::kInstance, true}, {"PropertyName", EForm::kText, true}},
       GetProperty},
  };
}

}  // namespace NZELVYR20

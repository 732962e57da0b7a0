#include "AskedInstances.h"

#include <string>

#include "TCIMReference.h"
#include "TCimFailure.h"

namespace NZELVYR20 {

TElementForm InstanceForm(const TArguments& arguments) {
  TElementForm form;
  form.classOrigin = arguments.Flag("IncludeClassOrigin", false);
  form.properties = arguments.Names("PropertyList");
  return form;
}

boost::shared_ptr<ICIMInstance> FindAskedInstance(const TCall& call) {
  const TCIMReference path = call.paths.ReadInstance(call.arguments.Get("InstanceName"));
  auto instance = call.place.nameSpace->GetInstance(path, {});
  if (!instance) throw TCimFailure(ECimStatus::kNotFound, "not found: " + path.ToString());
  return instance;
}

}  // namespace NZELVYR20

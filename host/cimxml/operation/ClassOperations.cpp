#include "FoldName.h"
#include "ListClasses.h"
#include "ListElements.h"
#include "Operations.h"
#include "TCimFailure.h"

namespace NZELVYR20 {
namespace {

TElementForm ClassForm(const TArguments& arguments) {
  TElementForm form;
  form.localOnly = arguments.Flag("LocalOnly", true);
  form.qualifiers = arguments.Flag("IncludeQualifiers", true);
  form.classOrigin = arguments.Flag("IncludeClassOrigin", false);
  return form;
}

// A class that an operation starts from is invalid where it is unknown; the one asked for is
// missing.
boost::shared_ptr<ICIMClass> FindAskedClass(const TCall& call) {
  try {
    return call.paths.ReadClass(call.arguments.Get("ClassName"));
  } catch (const TCimFailure& failure) {
    if (failure.GetStatus() != ECimStatus::kInvalidClass) throw;
    throw TCimFailure(ECimStatus::kNotFound, failure.what());
  }
}

TResult GetClass(const TCall& call) {
  TElementForm form = ClassForm(call.arguments);
  form.properties = call.arguments.Names("PropertyList");
  return ResultOf<boost::shared_ptr<ICIMClass>>(
      {FindAskedClass(call)}, [form](TElementWriter& elements, const ICIMClass& cimClass) {
        elements.WriteClass(cimClass, form);
      });
}

TClassList ListAskedClasses(const TCall& call) {
  const pugi::xml_node name = call.arguments.Get("ClassName");
  const bool deep = call.arguments.Flag("DeepInheritance", false);
  if (!name.empty()) return ListSubClasses(*call.paths.ReadClass(name), deep);
  return deep ? ListAllClasses(*call.place.nameSpace) : ListTopClasses(*call.place.nameSpace);
}

TResult EnumerateClasses(const TCall& call) {
  const TElementForm form = ClassForm(call.arguments);
  return ResultOf(ListAskedClasses(call),
                  [form](TElementWriter& elements, const ICIMClass& cimClass) {
                    elements.WriteClass(cimClass, form);
                  });
}

TResult EnumerateClassNames(const TCall& call) {
  return ResultOf(ListAskedClasses(call), [](TElementWriter& elements, const ICIMClass& cimClass) {
    elements.WriteClassName(cimClass);
  });
}

}  // namespace

std::vector<TOperation> ClassOperations() {
  return {
      {"GetClass",
       {{"ClassName", EForm::kClass, true},
        {"LocalOnly", EForm::kFlag},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag},
        {"PropertyList", EForm::kNames}},
       GetClass},
      {"EnumerateClasses",
       {{"ClassName", EForm::kClass},
        {"DeepInheritance", EForm::kFlag},
        {"LocalOnly", EForm::kFlag},
        {"IncludeQualifiers", EForm::kFlag},
        {"IncludeClassOrigin", EForm::kFlag}},
       EnumerateClasses},
      {"EnumerateClassNames",
       {{"ClassName", EForm::kClass}, {"DeepInheritance", EForm::kFlag}},
       EnumerateClassNames},
  };
}

}  // namespace NZELVYR20

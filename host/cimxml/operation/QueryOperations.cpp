#include "Operations.h"
#include "TQuery.h"

namespace NZELVYR20 {
namespace {

TResult ExecQuery(const TCall& call) {
  const TQuery query(*call.arguments.Text("QueryLanguage"), *call.arguments.Text("Query"),
                     call.place.nameSpace);
  return ResultOf(query.Select(),
                  [form = query.GetForm()](TElementWriter& elements, ICIMInstance& instance) {
                    elements.WriteObjectWithPath(instance, form);
                  });
}

}  // namespace

std::vector<TOperation> QueryOperations() {
  return {{"ExecQuery",
           {{"QueryLanguage", EForm::kText, true}, {"Query", EForm::kText, true}},
           ExecQuery}};
}

}  // namespace NZELVYR20

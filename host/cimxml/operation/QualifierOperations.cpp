#include "FindOrFail.h"
#include "ListElements.h"
#include "Operations.h"

namespace NZELVYR20 {
namespace {

TResult DeclarationsOf(std::vector<boost::shared_ptr<ICIMQualifierDecl>> found) {
  return ResultOf(std::move(found),
                  [](TElementWriter& elements, const ICIMQualifierDecl& declaration) {
                    elements.WriteQualifierDecl(declaration);
                  });
}

TResult GetQualifier(const TCall& call) {
  const std::string name = *call.arguments.Text("QualifierName");
  return DeclarationsOf(
      {FindOrFail([&] { return call.place.nameSpace->GetQualifierDecl(name, {}); },
                  ECimStatus::kNotFound, "qualifier " + name)});
}

TResult EnumerateQualifiers(const TCall& call) {
  return DeclarationsOf(ListQualifierDecls(*call.place.nameSpace));
}

}  // namespace

std::vector<TOperation> QualifierOperations() {
  return {
      {"GetQualifier", {{"QualifierName", EForm::kText, true}}, GetQualifier},
      {"EnumerateQualifiers", {}, EnumerateQualifiers},
  };
}

}  // namespace NZELVYR20

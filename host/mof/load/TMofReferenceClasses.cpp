#include "TMofReferenceClasses.h"

#include "FindOrNothing.h"
#include "FoldName.h"
#include "ICIMClass.h"
#include "ICIMNamespace.h"

namespace NZELVYR20 {
namespace {

std::string MakeKey(const ICIMMethodDecl& method, const std::string& parameter) {
  return FoldName(method.GetClass({})->GetName({}) + '.' + method.GetName({}) + '.' + parameter);
}

}  // namespace

void TMofReferenceClasses::Set(const ICIMMethodDecl& method, const std::string& parameter,
                               const std::string& className) {
  names_[MakeKey(method, parameter)] = className;
}

std::string TMofReferenceClasses::Get(const ICIMMethodDecl& method,
                                      const std::string& parameter) const {
  const auto found = names_.find(MakeKey(method, parameter));
  const auto nameSpace = method.GetClass({})->GetNamespace({});
  const bool isThere = found != names_.end() &&
                       FindOrNothing([&] { return nameSpace->GetClass(found->second, {}); });
  return isThere ? found->second : "object";
}

}  // namespace NZELVYR20

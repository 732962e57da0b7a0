#include "Pages.h"

#include "TCommandError.h"
#include "TElementFinder.h"

namespace NZELVYR20 {

boost::shared_ptr<ICIMInstance> TPageRequest::FindInstance() const {
  const std::string path = request.Get("path");
  if (path.empty()) throw TCommandError("The address names no instance");
  return TElementFinder(nameSpace).FindInstance(path);
}

}  // namespace NZELVYR20

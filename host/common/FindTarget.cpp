#include "FindTarget.h"

#include "FindOrNothing.h"

namespace NZELVYR20 {

boost::shared_ptr<ICIMInstance> FindTarget(const TCIMReference& path) {
  return boost::dynamic_pointer_cast<ICIMInstance>(
      FindOrNothing([&path] { return path.GetCIMElement(false); }));
}

}  // namespace NZELVYR20

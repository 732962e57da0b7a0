#include "TSite.h"

#include <utility>

namespace NZELVYR20 {

TSite::TSite(boost::shared_ptr<ICIMNamespace> nameSpace) : namespace_(std::move(nameSpace)) {}

TSiteAnswer TSite::Answer(const TSiteRequest& /*request*/) const {
  return {404, "text/plain; charset=utf-8", "Not found"};
}

}  // namespace NZELVYR20

#include "VYRVersion.h"

namespace NZELVYR20 {

int GetVersion() noexcept { return VYR_VERSION; }

}  // namespace NZELVYR20

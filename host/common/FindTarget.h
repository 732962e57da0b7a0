#pragma once

#include <boost/shared_ptr.hpp>

#include "ICIMInstance.h"
#include "TCIMReference.h"

namespace NZELVYR20 {

/// The instance to which a path leads; empty where nothing is there.
boost::shared_ptr<ICIMInstance> FindTarget(const TCIMReference& path);

}  // namespace NZELVYR20

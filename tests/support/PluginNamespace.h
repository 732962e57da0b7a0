#pragma once

#include <boost/shared_ptr.hpp>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// A fresh namespace of the plug-in, which is loaded as a host loads it. What the repository logs
/// goes to the logger in force.
boost::shared_ptr<ICIMNamespace> AllocatePluginNamespace(bool allowRedefinition = false);

}  // namespace NZELVYR20

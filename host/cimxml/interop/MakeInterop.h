#pragma once

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// A namespace in which a server describes itself, as clients look for it: the server, its
/// namespaces of those names, and after what rules the machine is described, which are its own. It
/// is of the provider that made `machine`. Throws TKitError, which names the file, where the schema
/// interop.mof was not installed.
boost::shared_ptr<ICIMNamespace> MakeInterop(ICIMNamespace& machine,
                                             const std::vector<std::string>& names);

}  // namespace NZELVYR20

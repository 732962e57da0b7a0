#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"
#include "ListElements.h"

namespace NZELVYR20 {

/// The instances of a class, with `deep` also of its subclasses, for which an SQL expression holds,
/// in the order in which the class enumerates them. The expression may name what a table of that
/// class has (docs/sql.md), and other tables in queries of its own. Throws TCommandError where it
/// is wrong, with the place, or where there is no such class.
TInstanceList SelectInstances(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                              const std::string& className, bool deep, const std::string& where);

}  // namespace NZELVYR20

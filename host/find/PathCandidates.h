#pragma once

#include <string>
#include <vector>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// The names of classes that begin with what has been typed, in any letter case.
std::vector<std::string> ListClassCandidates(ICIMNamespace& nameSpace, const std::string& typed);

/// What an object path that begins so may go on with: the classes that have instances, up to the
/// colon or full stop after their names, and values that tell which instance is meant; once only
/// one class is left, the short paths of its instances.
std::vector<std::string> ListPathCandidates(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                                            const std::string& typed);

}  // namespace NZELVYR20

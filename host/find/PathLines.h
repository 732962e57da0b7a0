#pragma once

#include <string>

#include "ListElements.h"

namespace NZELVYR20 {

/// The paths of a list, one a line: full ones in the list's order, or short ones as people count.
std::string PathLines(const TInstanceList& instances, bool isShort);

}  // namespace NZELVYR20

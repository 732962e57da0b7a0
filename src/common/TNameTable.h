#pragma once

#include <string>

#include "TOrderedTable.h"

namespace NZELVYR20 {

/// Elements under their normalized names (NormalizeName).
template <class TElement>
using TNameTable = TOrderedTable<std::string, TElement>;

}  // namespace NZELVYR20

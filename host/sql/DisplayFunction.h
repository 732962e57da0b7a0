#pragma once

#include <sqlite3.h>

#include "TSqlShared.h"

namespace NZELVYR20 {

/// Adds the function display(path, property) to a database, which `shared` outlives: the text that
/// people read. It is null where there is neither such an instance nor a value, and where only
/// another class has such a property; a property that no class has is an error.
int AddDisplayFunction(sqlite3* database, TSqlShared& shared);

}  // namespace NZELVYR20

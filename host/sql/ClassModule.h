#pragma once

#include <sqlite3.h>

#include <boost/shared_ptr.hpp>

#include "ICIMClass.h"
#include "TSqlShared.h"

namespace NZELVYR20 {

/// A class, as a database has it that knows its name alone.
struct TClassSource {
  boost::shared_ptr<ICIMClass> cimClass;
  TSqlShared* shared;
};

/// Makes a class known to a database: it becomes a TClassTable when a statement first names it, so
/// that the others cost next to nothing. The source outlives the database.
int AddClassModule(sqlite3* database, TClassSource& source);

}  // namespace NZELVYR20

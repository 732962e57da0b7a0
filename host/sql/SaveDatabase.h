#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ICIMNamespace.h"

namespace NZELVYR20 {

/// Writes all instances as a database of SQLite, which answers the same statements: a table or a
/// view for each class with instances, and the table display$ of what people read, as docs/sql.md
/// tells. The file takes its place when it is whole; there, nothing but a database is replaced.
/// Throws TCommandError.
void SaveDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& path);

}  // namespace NZELVYR20

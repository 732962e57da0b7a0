#pragma once

#include <sqlite3.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <memory>
#include <vector>

#include "ClassModule.h"
#include "ICIMNamespace.h"
#include "SqlFailure.h"
#include "TScopedSilence.h"
#include "TSqlShared.h"

namespace NZELVYR20 {

/// A compiled statement; none is empty.
using TSqlCompiled = std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt*)>;

/// A database of SQLite in which each class is a table. Nothing must change in the namespace while
/// it lives. Lack of memory is std::bad_alloc.
class TSqlDatabase {
 public:
  explicit TSqlDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace);

  sqlite3* Get() const { return database_.get(); }
  TSqlPaths& GetPaths() { return shared_.paths; }

  /// Lets statements read and do nothing else, from now on.
  void Protect() const;

  /// Compiles a text that must be exactly one statement that reads. Throws TCommandError.
  TSqlCompiled Compile(const TSqlText& text);

  /// Goes to the next row; false after the last. Throws TCommandError.
  bool Step(sqlite3_stmt* statement);

 private:
  TSqlCompiled Prepare(const TSqlText& text, std::size_t begin, std::size_t& next);
  void CheckIsLast(const TSqlText& text, std::size_t begin);

  const TScopedSilence silence_;  ///< what fails here is reported once
  TSqlShared shared_;
  std::vector<TClassSource> sources_;
  std::unique_ptr<sqlite3, int (*)(sqlite3*)> database_;
};

}  // namespace NZELVYR20

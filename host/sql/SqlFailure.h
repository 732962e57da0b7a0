#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <string>

#include "TCommandError.h"
#include "TSqlShared.h"

namespace NZELVYR20 {

/// What a user wrote in SQL: a whole statement, or its part from `origin` to `end`.
struct TSqlText {
  std::string text;
  std::size_t origin = 0;
  std::size_t end = std::string::npos;

  /// A failure of what stands at an offset, such as "SQL: line 2, column 8: too much".
  TCommandError FailureAt(std::size_t offset, const std::string& what) const;
};

/// What is said of a statement that does more than read.
constexpr auto kSqlReadsOnly =
    "nothing is changed here: only SELECT, VALUES, WITH and EXPLAIN are understood";

/// What failed lately in a database, as a TCommandError with what may have been meant; `begin` is
/// where the failing statement stands in the text. Lack of memory is thrown as std::bad_alloc.
TCommandError DescribeSqlFailure(sqlite3* database, const TSqlShared& shared, const TSqlText& text,
                                 std::size_t begin);

}  // namespace NZELVYR20

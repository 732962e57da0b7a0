#pragma once

#include <boost/shared_ptr.hpp>
#include <memory>
#include <string>
#include <vector>

#include "ICIMNamespace.h"
#include "TCIMValue.h"

namespace NZELVYR20 {

/// A question to a namespace, in SQL. Each class is a table of its instances, as docs/sql.md tells;
/// nothing can be changed. Rows are looked for as they are asked for, and nothing must change in
/// the namespace until the object is gone.
class TSqlStatement {
 public:
  /// Throws TCommandError, with the place, where the text is not exactly one statement that reads.
  TSqlStatement(const boost::shared_ptr<ICIMNamespace>& nameSpace, const std::string& text);
  TSqlStatement(const TSqlStatement&) = delete;
  TSqlStatement& operator=(const TSqlStatement&) = delete;
  ~TSqlStatement();

  /// The columns of the result, of which no two have the same name.
  const std::vector<std::string>& GetColumns() const { return columns_; }

  /// The next row, a value for each column: null, sint64, real64 or string. False after the last.
  /// Throws TCommandError where the statement fails on the way.
  bool Next(std::vector<TCIMValue>& row);

 private:
  struct TParts;

  std::unique_ptr<TParts> parts_;
  std::vector<std::string> columns_;
};

}  // namespace NZELVYR20

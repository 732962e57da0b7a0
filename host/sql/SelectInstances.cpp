#include "SelectInstances.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "FoldName.h"
#include "SqlValue.h"
#include "TCommandError.h"
#include "TElementFinder.h"
#include "TSqlDatabase.h"

namespace NZELVYR20 {
namespace {

/// A name of the row's number that is no property's.
std::string NumberOfRow(const ICIMClass& cimClass) {
  const auto declarations = ListPropertyDecls(cimClass);
  for (const char* name : {"rowid", "oid", "_rowid_"}) {
    const auto hasName = [name](const auto& declaration) {
      return CompareFolded(declaration->GetName({}), name) == 0;
    };
    if (std::none_of(declarations.begin(), declarations.end(), hasName)) return name;
  }
  throw TCommandError("class " + cimClass.GetName({}) + " leaves no name for the numbers of rows");
}

/// Compiled twice: by itself the expression gets its own messages, and in brackets it cannot be
/// more than an expression.
TSqlCompiled CompileSelection(TSqlDatabase& database, const ICIMClass& cimClass,
                              const std::string& where) {
  const std::string start =
      "SELECT " + NumberOfRow(cimClass) + " FROM " + QuoteSqlName(cimClass.GetName({})) + " WHERE ";
  database.Compile({start + where, start.size()});
  const std::size_t origin = start.size() + 1;
  return database.Compile({start + "(" + where + "\n)", origin, origin + where.size()});
}

}  // namespace

TInstanceList SelectInstances(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                              const std::string& className, bool deep, const std::string& where) {
  const auto cimClass = TElementFinder(nameSpace).FindClass(className);
  TSqlDatabase database(nameSpace);
  database.Protect();
  const TSqlCompiled selection = CompileSelection(database, *cimClass, where);
  std::vector<sqlite3_int64> rows;
  while (database.Step(selection.get())) rows.push_back(sqlite3_column_int64(selection.get(), 0));
  std::sort(rows.begin(), rows.end());

  const TInstanceList all = ListInstances(*cimClass, true);
  TInstanceList selected;
  for (const sqlite3_int64 row : rows) {
    const auto& instance = all[static_cast<std::size_t>(row) - 1];
    if (deep || instance->GetClass({}) == cimClass) selected.push_back(instance);
  }
  return selected;
}

}  // namespace NZELVYR20

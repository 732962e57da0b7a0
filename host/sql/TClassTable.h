#pragma once

#include <sqlite3.h>

#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "ICIMClass.h"
#include "ListElements.h"
#include "TCIMValue.h"
#include "TSqlPaths.h"

namespace NZELVYR20 {

/// A class as a table of SQLite: a row for each of its instances and those of its subclasses, a
/// column for each property. Nothing changes in the namespace while it lives.
class TClassTable : public sqlite3_vtab {
 public:
  /// How a query finds rows; kReference stands for the first reference's column, and so on.
  enum EPlan : int { kAll, kPath, kClass, kReference };

  /// `paths` outlives the object.
  TClassTable(boost::shared_ptr<ICIMClass> cimClass, TSqlPaths& paths);

  /// The names of the columns: of the object path, of the class, and of the properties.
  const std::vector<std::string>& GetColumns() const { return names_; }
  /// The columns with their types, as CREATE TABLE has them between its brackets.
  std::string GetDeclaration() const;
  /// The names of those columns that hold references.
  std::vector<std::string> ListReferences() const;

  /// Tells SQLite which of its constraints save looking at every row.
  void ChoosePlan(sqlite3_index_info& info);

  /// Every row.
  const TInstanceList& GetAll();
  /// The rows among which are those that a plan's constraint, "= text", asks for.
  TInstanceList Find(int plan, const std::string& text);
  /// Where the instance stands among all rows, from 1 on.
  sqlite3_int64 GetPosition(const ICIMInstance* instance);

  /// Gives SQLite what stands in a row.
  void SetResult(sqlite3_context* result, const boost::shared_ptr<ICIMInstance>& instance,
                 int column) const;

 private:
  /// What a constraint promises.
  struct TPromise {
    int plan;
    double cost;
    sqlite3_int64 rows;
  };

  bool IsReference(int column) const;
  std::optional<TPromise> FindPromise(sqlite3_index_info& info, int constraint);
  TInstanceList FindByPath(const std::string& path) const;
  TInstanceList FindByClass(const std::string& name) const;
  TInstanceList FindByReference(const std::string& role, const std::string& path);
  const TInstanceList& GetDangling();

  boost::shared_ptr<ICIMClass> class_;
  TSqlPaths& paths_;
  std::vector<std::string> names_;
  std::vector<TCIMValue::TCIMType> types_;
  std::optional<TInstanceList> all_;
  std::optional<TInstanceList> dangling_;  ///< those with a reference that leads nowhere
  std::unordered_map<const ICIMInstance*, sqlite3_int64> positions_;
};

}  // namespace NZELVYR20

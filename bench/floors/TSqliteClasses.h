#pragma once

#include <cstddef>
#include <string>

#include "TClassRows.h"
#include "TSqlite.h"

namespace NZELVYR20 {

/// The floor "SQLite" for a schema: tables of classes, properties and qualifiers; nothing that is
/// inherited is stored twice. The operations are those of TPluginClasses.
class TSqliteClasses {
 public:
  explicit TSqliteClasses(const TClassRows& rows);

  void AddInstances(const TClassRows& rows);

  bool Has(const std::string& name);
  std::size_t CountSubClasses();
  std::size_t CountInstances();

 private:
  static std::size_t CountRows(TSqliteStatement& query);

  TSqlite database_;
  TSqliteStatement find_;
  TSqliteStatement subClasses_;
  TSqliteStatement instances_;
  std::string top_;
};

}  // namespace NZELVYR20

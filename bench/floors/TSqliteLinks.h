#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TLinkRows.h"
#include "TSqlite.h"

namespace NZELVYR20 {

/// The floor "SQLite" for links: their ends by path, and both columns that refer indexed. The
/// queries are those of TPluginLinks; each looks at the one column that can refer to a system.
class TSqliteLinks {
 public:
  explicit TSqliteLinks(const TLinkRows& rows);

  std::size_t CountReferences(std::size_t system);
  std::size_t CountAssociators(std::size_t system);

 private:
  void AddEnds(const char* table, const char* key, const std::vector<std::string>& names);
  void AddLinks(const TLinkRows& rows);
  static std::size_t CountTexts(TSqliteStatement& query, const std::string& path);

  TSqlite database_;
  TSqliteStatement references_;
  TSqliteStatement associators_;
  std::vector<std::string> systems_;  ///< their paths, by number
};

}  // namespace NZELVYR20

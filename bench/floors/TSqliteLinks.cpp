#include "TSqliteLinks.h"

#include "TDiskRow.h"

namespace NZELVYR20 {

TSqliteLinks::TSqliteLinks(const TLinkRows& rows)
    : database_(
          "CREATE TABLE System (Path TEXT PRIMARY KEY, Name TEXT) WITHOUT ROWID;"
          "CREATE TABLE Part (Path TEXT PRIMARY KEY, Name TEXT) WITHOUT ROWID;"
          "CREATE TABLE Link (System TEXT, Part TEXT, PRIMARY KEY (System, Part)) WITHOUT ROWID;"
          "CREATE INDEX LinkPart ON Link (Part)"),
      references_(database_.Prepare("SELECT Part FROM Link WHERE System = ?1")),
      associators_(database_.Prepare("SELECT Part.Name FROM Link JOIN Part ON Part.Path = Link.Part"
                                     " WHERE Link.System = ?1")) {
  database_.Execute("BEGIN");
  AddEnds("System", kSystemKey, rows.names);
  AddEnds("Part", kPartKey, rows.names);
  AddLinks(rows);
  database_.Execute("COMMIT; ANALYZE");
  for (const std::string& name : rows.names) systems_.push_back(MakePathText(kSystemKey, name));
}

void TSqliteLinks::AddEnds(const char* table, const char* key,
                           const std::vector<std::string>& names) {
  auto insert = database_.Prepare(std::string("INSERT INTO ") + table + " VALUES (?1, ?2)");
  for (const std::string& name : names) {
    const std::string path = MakePathText(key, name);
    insert.Bind(1, path).Bind(2, name).Run();
  }
}

void TSqliteLinks::AddLinks(const TLinkRows& rows) {
  auto insert = database_.Prepare("INSERT INTO Link VALUES (?1, ?2)");
  for (const auto& row : rows.links) {
    const std::string system = MakePathText(kSystemKey, rows.names[row.system]);
    const std::string part = MakePathText(kPartKey, rows.names[row.part]);
    insert.Bind(1, system).Bind(2, part).Run();
  }
}

std::size_t TSqliteLinks::CountTexts(TSqliteStatement& query, const std::string& path) {
  std::size_t count = 0;
  query.Bind(1, path);
  while (query.Step()) count += *query.GetText(0) == '\0' ? 0 : 1;
  return count;
}

std::size_t TSqliteLinks::CountReferences(std::size_t system) {
  return CountTexts(references_, systems_[system]);
}

std::size_t TSqliteLinks::CountAssociators(std::size_t system) {
  return CountTexts(associators_, systems_[system]);
}

}  // namespace NZELVYR20

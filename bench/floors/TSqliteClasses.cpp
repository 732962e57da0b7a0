#include "TSqliteClasses.h"

#include "TDiskRow.h"

namespace NZELVYR20 {
namespace {

/// In place of a property, of the qualifiers of a class.
const std::string kNone;

/// The names of the classes below ?1, that one included.
const std::string kBelow =
    "WITH RECURSIVE Below(Name) AS (SELECT ?1 UNION ALL SELECT Class.Name FROM Class"
    " JOIN Below ON Class.Super = Below.Name) ";

}  // namespace

TSqliteClasses::TSqliteClasses(const TClassRows& rows)
    : database_(
          "CREATE TABLE Class (Name TEXT PRIMARY KEY COLLATE NOCASE, Super TEXT COLLATE NOCASE)"
          " WITHOUT ROWID;"
          "CREATE INDEX ClassSuper ON Class (Super);"
          "CREATE TABLE Property (Class TEXT COLLATE NOCASE, Name TEXT COLLATE NOCASE,"
          " DefaultValue TEXT, PRIMARY KEY (Class, Name)) WITHOUT ROWID;"
          "CREATE TABLE Qualifier (Class TEXT COLLATE NOCASE, Property TEXT COLLATE NOCASE,"
          " Name TEXT COLLATE NOCASE, Value, PRIMARY KEY (Class, Property, Name)) WITHOUT ROWID;"
          "CREATE TABLE Instance (Class TEXT COLLATE NOCASE, Path TEXT,"
          " PRIMARY KEY (Class, Path)) WITHOUT ROWID"),
      find_(database_.Prepare("SELECT Super FROM Class WHERE Name = ?1")),
      subClasses_(database_.Prepare(kBelow + "SELECT Name FROM Below LIMIT -1 OFFSET 1")),
      instances_(database_.Prepare(
          kBelow + "SELECT Path FROM Below JOIN Instance ON Instance.Class = Below.Name")),
      top_(rows.classes.front().name) {
  auto addClass = database_.Prepare("INSERT INTO Class VALUES (?1, ?2)");
  auto addProperty = database_.Prepare("INSERT INTO Property VALUES (?1, ?2, NULL)");
  auto addQualifier = database_.Prepare("INSERT INTO Qualifier VALUES (?1, ?2, ?3, ?4)");
  const auto describeAndMark = [&](const std::string& className, const std::string& property) {
    addQualifier.Bind(1, className).Bind(2, property);
    addQualifier.Bind(3, kDescription).Bind(4, kDescriptionText).Run();
    addQualifier.Bind(3, kMark).Bind(4, std::uint64_t{1}).Run();
  };
  database_.Execute("BEGIN");
  for (const auto& row : rows.classes) {
    const bool isTop = &row == &rows.classes.front();
    const std::string super = isTop ? std::string() : rows.classes[row.parent].name;
    addClass.Bind(1, row.name).Bind(2, super).Run();
    describeAndMark(row.name, kNone);
    for (const std::string& name : row.properties) {
      addProperty.Bind(1, row.name).Bind(2, name).Run();
      describeAndMark(row.name, name);
    }
  }
  database_.Execute("COMMIT");
}

void TSqliteClasses::AddInstances(const TClassRows& rows) {
  auto add = database_.Prepare("INSERT INTO Instance VALUES (?1, ?2)");
  database_.Execute("BEGIN");
  for (const auto& row : rows.classes) {
    for (const std::string& key : row.keys) {
      const std::string path = MakePathText((row.name + ".key").c_str(), key);
      add.Bind(1, row.name).Bind(2, path).Run();
    }
  }
  database_.Execute("COMMIT");
}

bool TSqliteClasses::Has(const std::string& name) {
  const bool isFound = find_.Bind(1, name).Step();
  find_.Reset();
  return isFound;
}

std::size_t TSqliteClasses::CountRows(TSqliteStatement& query) {
  std::size_t count = 0;
  while (query.Step()) count += *query.GetText(0) == '\0' ? 0 : 1;
  return count;
}

std::size_t TSqliteClasses::CountSubClasses() { return CountRows(subClasses_.Bind(1, top_)); }
std::size_t TSqliteClasses::CountInstances() { return CountRows(instances_.Bind(1, top_)); }

}  // namespace NZELVYR20

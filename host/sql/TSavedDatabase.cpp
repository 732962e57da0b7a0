#include "TSavedDatabase.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <utility>

#include "ListClasses.h"
#include "SqlValue.h"
#include "TCommandError.h"
#include "TInstanceReader.h"
#include "TPrinter.h"
#include "TText.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;
using TNames = std::vector<std::string>;

std::string JoinQuoted(const TNames& names) {
  TNames quoted;
  std::transform(names.begin(), names.end(), std::back_inserter(quoted), QuoteSqlName);
  return TText::Join(quoted, ", ");
}

/// A query of one table with the columns of another: path and class by their place, the others by
/// their names.
std::string SelectAs(const TClassTable& part, const std::string& name, const TClassTable& whole) {
  const TNames& own = part.GetColumns();
  const TNames& wanted = whole.GetColumns();
  TNames columns = {QuoteSqlName(own[0]), QuoteSqlName(own[1])};
  for (auto column = wanted.begin() + 2; column != wanted.end(); ++column) {
    const bool isThere = std::find(own.begin() + 2, own.end(), *column) != own.end();
    columns.push_back(isThere ? QuoteSqlName(*column) : "NULL");
  }
  return "SELECT " + TText::Join(columns, ", ") + " FROM " + QuoteSqlName(name);
}

/// The rows of all queries. SQLite unites so many at once and no more.
std::string Unite(TNames queries, std::size_t most) {
  const char* const link = " UNION ALL ";
  while (queries.size() > most) {
    TNames fewer;
    for (auto first = queries.begin(); first != queries.end();) {
      const auto count =
          std::min<std::ptrdiff_t>(queries.end() - first, static_cast<std::ptrdiff_t>(most));
      fewer.push_back("SELECT * FROM (" + TText::Join({first, first + count}, link) + ")");
      first += count;
    }
    queries = std::move(fewer);
  }
  return TText::Join(queries, link);
}

std::string IndexText(const std::string& table, const std::string& column) {
  return "CREATE INDEX saved." + QuoteSqlName(table + '.' + column) + " ON " + QuoteSqlName(table) +
         "(" + QuoteSqlName(column) + ")";
}

/// Whether a column has the very text that people read.
bool IsReadAsStored(const TCIMValue& value, const std::string& text) {
  return value.GetType() != TType::kBoolean && value.GetType() != TType::kDateTime &&
         !value.IsArray() && value.ToString(10) == text;
}

}  // namespace

TSavedDatabase::TSavedDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace,
                               const std::string& file, std::string name)
    : namespace_(nameSpace), name_(std::move(name)), database_(nameSpace) {
  sqlite3_stmt* made = nullptr;
  Check(sqlite3_prepare_v2(database_.Get(), "ATTACH ?1 AS saved", -1, &made, nullptr));
  const TSqlCompiled attach(made, sqlite3_finalize);
  Bind(attach.get(), 1, file);
  Check(sqlite3_step(attach.get()));
}

void TSavedDatabase::Fill() {
  // There is nothing to go back to: the file is new.
  Run("PRAGMA saved.journal_mode = OFF");
  Run("BEGIN; CREATE TABLE saved.display$(path TEXT, property TEXT COLLATE NOCASE, text TEXT, "
      "PRIMARY KEY(path, property)) WITHOUT ROWID");
  sqlite3_stmt* made = nullptr;
  Check(sqlite3_prepare_v2(database_.Get(), "INSERT INTO saved.display$ VALUES(?1, ?2, ?3)", -1,
                           &made, nullptr));
  addText_.reset(made);
  const TClassList classes = ListAllClasses(*namespace_);
  // The subclasses first.
  for (auto cimClass = classes.rbegin(); cimClass != classes.rend(); ++cimClass) {
    AddClass(*cimClass);
  }
  addText_.reset();
  Run("COMMIT; DETACH saved");
}

void TSavedDatabase::AddClass(const boost::shared_ptr<ICIMClass>& cimClass) {
  const TInstanceList own = ListInstances(*cimClass, false);
  TClassList parts = ListSubClasses(*cimClass, false);
  const auto isEmpty = [this](const auto& one) { return filled_.count(one.get()) == 0; };
  parts.erase(std::remove_if(parts.begin(), parts.end(), isEmpty), parts.end());
  if (own.empty() && parts.empty()) return;
  filled_.insert(cimClass.get());
  const std::string name = cimClass->GetName({});
  const TClassTable table(cimClass, database_.GetPaths());
  std::vector<std::string> selects;
  if (!own.empty()) {
    const std::string ownName = parts.empty() ? name : name + "$own";
    AddRows(table, ownName, name);
    AddTexts(own);
    selects.push_back(SelectAs(table, ownName, table));
  }
  for (const auto& part : parts) {
    selects.push_back(SelectAs(TClassTable(part, database_.GetPaths()), part->GetName({}), table));
  }
  if (parts.empty()) return;
  const int most = sqlite3_limit(database_.Get(), SQLITE_LIMIT_COMPOUND_SELECT, -1);
  Run("CREATE VIEW saved." + QuoteSqlName(name) + "(" + JoinQuoted(table.GetColumns()) + ") AS " +
      Unite(std::move(selects), static_cast<std::size_t>(most)));
}

void TSavedDatabase::AddRows(const TClassTable& table, const std::string& name,
                             const std::string& className) {
  const TNames& columns = table.GetColumns();
  const std::string target = "saved." + QuoteSqlName(name);
  Run("CREATE TABLE " + target + "(" + table.GetDeclaration() + ", PRIMARY KEY(" +
      QuoteSqlName(columns[0]) + ")) WITHOUT ROWID");
  Run("INSERT INTO " + target + " SELECT * FROM main." + QuoteSqlName(className) + " WHERE " +
      QuoteSqlName(columns[1]) + " = '" + className + "'");
  for (const std::string& reference : table.ListReferences()) Run(IndexText(name, reference));
}

void TSavedDatabase::AddTexts(const TInstanceList& instances) {
  for (const auto& instance : instances) {
    const std::string path = database_.GetPaths().TextOf(instance);
    for (const auto& property : ListProperties(*instance)) AddText(path, *property);
  }
}

void TSavedDatabase::AddText(const std::string& path, const ICIMProperty& property) {
  const TCIMValue& value = property.GetValue({});
  if (value.IsNull()) return;
  const std::string text = TPrinter::PropertyText(property);
  if (IsReadAsStored(value, text)) return;
  Bind(addText_.get(), 1, path);
  Bind(addText_.get(), 2, TInstanceReader::NameOf(property));
  Bind(addText_.get(), 3, text);
  Check(sqlite3_step(addText_.get()));
  Check(sqlite3_reset(addText_.get()));
}

void TSavedDatabase::Bind(sqlite3_stmt* statement, int place, const std::string& text) const {
  Check(sqlite3_bind_text64(statement, place, text.data(), text.size(), SQLITE_TRANSIENT,
                            SQLITE_UTF8));
}

void TSavedDatabase::Run(const std::string& statement) {
  Check(sqlite3_exec(database_.Get(), statement.c_str(), nullptr, nullptr, nullptr));
}

void TSavedDatabase::Check(int status) const {
  if (status == SQLITE_NOMEM) throw std::bad_alloc();
  if (status != SQLITE_OK && status != SQLITE_DONE && status != SQLITE_ROW) {
    throw TCommandError(name_ + ": " + sqlite3_errmsg(database_.Get()));
  }
}

}  // namespace NZELVYR20

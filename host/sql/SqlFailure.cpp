#include "SqlFailure.h"

#include <algorithm>
#include <initializer_list>
#include <new>
#include <string>
#include <string_view>

#include "ListClasses.h"
#include "StartsCharacter.h"
#include "TSuggestion.h"

namespace NZELVYR20 {
namespace {

/// What stands after one of SQLite's phrases, without the table before a column; empty elsewhere.
std::string NameAfter(std::string_view message, std::string_view phrase) {
  if (message.substr(0, phrase.size()) != phrase) return "";
  const std::string name(message.substr(phrase.size()));
  return name.substr(name.rfind('.') + 1);
}

std::string SuggestTable(const std::string& message, ICIMNamespace& nameSpace) {
  const std::string table = NameAfter(message, "no such table: ");
  return table.empty() ? "" : TSuggestion::For(table, ListClassNames(nameSpace));
}

/// Who quotes a text as in other languages has named a column.
std::string SuggestColumn(const std::string& message, const std::vector<std::string>& columns,
                          bool isQuoted) {
  const std::string column = NameAfter(message, "no such column: ");
  if (column.empty()) return "";
  const std::string suggestion = TSuggestion::For(column, columns);
  return suggestion.empty() && isQuoted ? "; a text stands in single quotes" : suggestion;
}

/// Where the failing part of a statement stands; SQLite does not always say.
std::size_t FindPlace(sqlite3* database, const TSqlText& text, std::size_t begin,
                      const std::string& message) {
  const int offset = sqlite3_error_offset(database);
  if (offset >= 0) return begin + static_cast<std::size_t>(offset);
  const std::size_t colon = message.rfind(": ");
  if (colon == std::string::npos) return std::string::npos;
  return text.text.find(message.substr(colon + 2), std::max(begin, text.origin));
}

}  // namespace

TCommandError TSqlText::FailureAt(std::size_t offset, const std::string& what) const {
  const std::string own = text.substr(origin, end - origin);
  const std::string kind = origin == 0 ? "SQL: " : "SQL expression: ";
  if (offset == std::string::npos) return TCommandError(kind + what);
  const std::string before = own.substr(0, offset < origin ? 0 : offset - origin);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const auto start = before.begin() + static_cast<std::ptrdiff_t>(before.rfind('\n') + 1);
  const auto column = std::count_if(start, before.end(), StartsCharacter) + 1;
  return TCommandError(kind + (line > 1 ? "line " + std::to_string(line) + ", " : std::string()) +
                       "column " + std::to_string(column) + ": " + what);
}

TCommandError DescribeSqlFailure(sqlite3* database, const TSqlShared& shared, const TSqlText& text,
                                 std::size_t begin) {
  const int status = sqlite3_errcode(database);
  if (status == SQLITE_NOMEM) throw std::bad_alloc();
  if (status == SQLITE_AUTH) return text.FailureAt(begin, kSqlReadsOnly);
  const std::string message = sqlite3_errmsg(database);
  const std::size_t place = FindPlace(database, text, begin, message);
  const bool isQuoted = place < text.text.size() && text.text[place] == '"';
  return text.FailureAt(place, message + SuggestTable(message, *shared.nameSpace) +
                                   SuggestColumn(message, shared.columns, isQuoted));
}

}  // namespace NZELVYR20

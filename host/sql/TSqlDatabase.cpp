#include "TSqlDatabase.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <string>

#include "DisplayFunction.h"
#include "ListClasses.h"

namespace NZELVYR20 {
namespace {

/// What SQLite asks before it compiles a step.
int AllowReading(void*, int action, const char* name, const char*, const char*, const char*) {
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_FUNCTION:
    case SQLITE_RECURSIVE:
      return SQLITE_OK;
    case SQLITE_PRAGMA:
      // Tells a table's columns.
      return std::strcmp(name, "table_info") == 0 || std::strcmp(name, "table_xinfo") == 0
                 ? SQLITE_OK
                 : SQLITE_DENY;
    case SQLITE_UPDATE:
      // What it asks where it meets a virtual table; a statement cannot do that.
      return std::strcmp(name, "sqlite_master") == 0 ? SQLITE_OK : SQLITE_DENY;
    default:
      return SQLITE_DENY;
  }
}

sqlite3* OpenInMemory() {
  sqlite3* made = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
  if (sqlite3_open_v2(":memory:", &made, flags, nullptr) != SQLITE_OK) {
    sqlite3_close_v2(made);
    throw std::bad_alloc();
  }
  return made;
}

}  // namespace

TSqlDatabase::TSqlDatabase(const boost::shared_ptr<ICIMNamespace>& nameSpace)
    : shared_(nameSpace), database_(OpenInMemory(), sqlite3_close_v2) {
  for (const auto& cimClass : ListAllClasses(*nameSpace)) sources_.push_back({cimClass, &shared_});
  const auto add = [this](TClassSource& source) {
    return AddClassModule(Get(), source) == SQLITE_OK;
  };
  // What is quoted twice is a name, and no text where there is no such column.
  const bool isWhole =
      sqlite3_db_config(Get(), SQLITE_DBCONFIG_DQS_DML, 0, nullptr) == SQLITE_OK &&
      std::all_of(sources_.begin(), sources_.end(), add) &&
      AddDisplayFunction(Get(), shared_) == SQLITE_OK &&
      sqlite3_exec(Get(), "PRAGMA temp_store = MEMORY", nullptr, nullptr, nullptr) == SQLITE_OK;
  if (!isWhole) throw std::bad_alloc();
}

void TSqlDatabase::Protect() const { sqlite3_set_authorizer(Get(), AllowReading, nullptr); }

/// `next` becomes where the text after the statement begins. A comment gives no statement.
TSqlCompiled TSqlDatabase::Prepare(const TSqlText& text, std::size_t begin, std::size_t& next) {
  constexpr std::size_t kMost = std::numeric_limits<int>::max() - 1;
  const char* const start = text.text.c_str() + begin;
  const auto size = static_cast<int>(std::min(text.text.size() - begin, kMost) + 1);
  const char* tail = start;
  sqlite3_stmt* made = nullptr;
  const int status = sqlite3_prepare_v2(Get(), start, size, &made, &tail);
  TSqlCompiled compiled(made, sqlite3_finalize);
  if (status != SQLITE_OK) throw DescribeSqlFailure(Get(), shared_, text, begin);
  next = begin + static_cast<std::size_t>(tail - start);
  return compiled;
}

void TSqlDatabase::CheckIsLast(const TSqlText& text, std::size_t begin) {
  while (begin < text.text.size()) {
    std::size_t next = begin;
    if (Prepare(text, begin, next)) {
      throw text.FailureAt(text.text.find_first_not_of(" \t\r\n;", begin),
                           "a second statement begins; one is answered at a time");
    }
    begin = next;
  }
}

TSqlCompiled TSqlDatabase::Compile(const TSqlText& text) {
  const std::size_t nul = text.text.find('\0');
  if (nul != std::string::npos) throw text.FailureAt(nul, "a NUL character");
  std::size_t next = 0;
  TSqlCompiled compiled = Prepare(text, 0, next);
  if (!compiled) throw text.FailureAt(std::string::npos, "there is no statement");
  CheckIsLast(text, next);
  const bool isReader =
      sqlite3_stmt_readonly(compiled.get()) != 0 && sqlite3_column_count(compiled.get()) > 0;
  if (!isReader) throw text.FailureAt(0, kSqlReadsOnly);
  if (sqlite3_bind_parameter_count(compiled.get()) > 0) {
    const char* const name = sqlite3_bind_parameter_name(compiled.get(), 1);
    throw text.FailureAt(text.text.find(name == nullptr ? "?" : name, text.origin),
                         "a parameter, which has no value");
  }
  return compiled;
}

bool TSqlDatabase::Step(sqlite3_stmt* statement) {
  const int status = sqlite3_step(statement);
  if (status == SQLITE_ROW || status == SQLITE_DONE) return status == SQLITE_ROW;
  throw DescribeSqlFailure(Get(), shared_, {}, 0);
}

}  // namespace NZELVYR20

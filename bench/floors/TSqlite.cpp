#include "TSqlite.h"

#include <stdexcept>

namespace NZELVYR20 {
namespace {

void RequireDone(bool isDone, sqlite3* database) {
  if (!isDone) throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

TSqliteStatement::TSqliteStatement(sqlite3* database, const std::string& text) {
  sqlite3_stmt* made = nullptr;
  const int status =
      sqlite3_prepare_v3(database, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &made, nullptr);
  statement_.reset(made);
  RequireDone(status == SQLITE_OK, database);
}

TSqliteStatement& TSqliteStatement::Bind(int position, const std::string& text) {
  sqlite3_bind_text(statement_.get(), position, text.data(), static_cast<int>(text.size()),
                    SQLITE_STATIC);
  return *this;
}

TSqliteStatement& TSqliteStatement::Bind(int position, std::uint64_t number) {
  sqlite3_bind_int64(statement_.get(), position, static_cast<sqlite3_int64>(number));
  return *this;
}

bool TSqliteStatement::Step() {
  const int status = sqlite3_step(statement_.get());
  if (status == SQLITE_ROW) return true;
  RequireDone(status == SQLITE_DONE, sqlite3_db_handle(statement_.get()));
  Reset();
  return false;
}

void TSqliteStatement::Reset() { sqlite3_reset(statement_.get()); }

std::uint64_t TSqliteStatement::GetNumber(int column) const {
  return static_cast<std::uint64_t>(sqlite3_column_int64(statement_.get(), column));
}

const char* TSqliteStatement::GetText(int column) const {
  return reinterpret_cast<const char*>(sqlite3_column_text(statement_.get(), column));
}

TSqlite::TSqlite(const std::string& schema) {
  sqlite3* made = nullptr;
  const int status = sqlite3_open(":memory:", &made);
  database_.reset(made);
  RequireDone(status == SQLITE_OK, made);
  Execute(schema);
}

void TSqlite::Execute(const std::string& text) {
  RequireDone(sqlite3_exec(database_.get(), text.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK,
              database_.get());
}

}  // namespace NZELVYR20

#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>

namespace NZELVYR20 {

/// A prepared statement. Texts are bound in place: they outlive the step.
class TSqliteStatement {
 public:
  TSqliteStatement(sqlite3* database, const std::string& text);

  TSqliteStatement& Bind(int position, const std::string& text);
  TSqliteStatement& Bind(int position, std::string&& text) = delete;
  TSqliteStatement& Bind(int position, std::uint64_t number);

  /// Goes to the next row; false after the last, and the statement can then run again.
  bool Step();
  /// Runs a statement that has no rows.
  void Run() { Step(); }
  /// Gives up the rows that are left.
  void Reset();

  std::uint64_t GetNumber(int column) const;
  /// Valid until the next step.
  const char* GetText(int column) const;

 private:
  struct TFinalize {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };

  std::unique_ptr<sqlite3_stmt, TFinalize> statement_;
};

/// A database in memory. Failures throw std::runtime_error.
class TSqlite {
 public:
  explicit TSqlite(const std::string& schema);

  void Execute(const std::string& text);
  TSqliteStatement Prepare(const std::string& text) { return {database_.get(), text}; }

 private:
  struct TClose {
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
  };

  std::unique_ptr<sqlite3, TClose> database_;
};

}  // namespace NZELVYR20

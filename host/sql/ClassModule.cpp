#include "ClassModule.h"

#include <cstddef>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>

#include "CallFromSqlite.h"
#include "SqlValue.h"
#include "TClassTable.h"

namespace NZELVYR20 {
namespace {

using TCursorBase = sqlite3_vtab_cursor;

/// Goes through the rows that a plan finds.
class TClassCursor : public TCursorBase {
 public:
  explicit TClassCursor(TClassTable& table) : TCursorBase{}, table_(table) {}

  void Start(int plan, int count, sqlite3_value** arguments) {
    next_ = 0;
    found_.clear();
    rows_ = plan == TClassTable::kAll ? &table_.GetAll() : &found_;
    const bool isNull = count == 0 || sqlite3_value_type(*arguments) == SQLITE_NULL;
    if (rows_ == &found_ && !isNull) found_ = table_.Find(plan, ReadSqlText(*arguments));
  }

  bool IsAtEnd() const { return next_ == rows_->size(); }
  void GoOn() { ++next_; }
  void SetResult(sqlite3_context* result, int column) const {
    table_.SetResult(result, (*rows_)[next_], column);
  }
  sqlite3_int64 GetPosition() const {
    if (rows_ != &found_) return static_cast<sqlite3_int64>(next_) + 1;
    return table_.GetPosition((*rows_)[next_].get());
  }

 private:
  TClassTable& table_;
  const TInstanceList* rows_ = nullptr;
  TInstanceList found_;
  std::size_t next_ = 0;
};

template <class TWork>
int CallOn(sqlite3_vtab* table, const TWork& work) noexcept {
  return CallFromSqlite(work, [table](const char* message) {
    sqlite3_free(table->zErrMsg);
    table->zErrMsg = sqlite3_mprintf("%s", message);
  });
}

TClassCursor& AsCursor(TCursorBase* cursor) { return static_cast<TClassCursor&>(*cursor); }

std::unique_ptr<TClassTable> MakeTable(sqlite3* database, const TClassSource& source) {
  auto table = std::make_unique<TClassTable>(source.cimClass, source.shared->paths);
  const std::string text = "CREATE TABLE x(" + table->GetDeclaration() + ")";
  const int status = sqlite3_declare_vtab(database, text.c_str());
  if (status == SQLITE_NOMEM) throw std::bad_alloc();
  if (status != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(database));
  auto& known = source.shared->columns;
  known.insert(known.end(), table->GetColumns().begin(), table->GetColumns().end());
  return table;
}

int Connect(sqlite3* database, void* source, int, const char* const*, sqlite3_vtab** made,
            char** message) {
  return CallFromSqlite(
      [=] { *made = MakeTable(database, *static_cast<TClassSource*>(source)).release(); },
      [=](const char* what) { *message = sqlite3_mprintf("%s", what); });
}

int Disconnect(sqlite3_vtab* table) {
  delete static_cast<TClassTable*>(table);
  return SQLITE_OK;
}

int ChoosePlan(sqlite3_vtab* table, sqlite3_index_info* info) {
  return CallOn(table, [=] { static_cast<TClassTable*>(table)->ChoosePlan(*info); });
}

int Open(sqlite3_vtab* table, TCursorBase** made) {
  return CallOn(table, [=] { *made = new TClassCursor(static_cast<TClassTable&>(*table)); });
}

int Close(TCursorBase* cursor) {
  delete &AsCursor(cursor);
  return SQLITE_OK;
}

int Start(TCursorBase* cursor, int plan, const char*, int count, sqlite3_value** arguments) {
  return CallOn(cursor->pVtab, [=] { AsCursor(cursor).Start(plan, count, arguments); });
}

int GoOn(TCursorBase* cursor) {
  AsCursor(cursor).GoOn();
  return SQLITE_OK;
}

int IsAtEnd(TCursorBase* cursor) { return AsCursor(cursor).IsAtEnd() ? 1 : 0; }

int SetResult(TCursorBase* cursor, sqlite3_context* result, int column) {
  return CallOn(cursor->pVtab, [=] { AsCursor(cursor).SetResult(result, column); });
}

int GetPosition(TCursorBase* cursor, sqlite3_int64* position) {
  return CallOn(cursor->pVtab, [=] { *position = AsCursor(cursor).GetPosition(); });
}

/// Without xCreate a table is there by its name alone, without xUpdate it cannot be changed.
sqlite3_module MakeModule() {
  sqlite3_module module{};
  module.xConnect = Connect;
  module.xBestIndex = ChoosePlan;
  module.xDisconnect = Disconnect;
  module.xDestroy = Disconnect;
  module.xOpen = Open;
  module.xClose = Close;
  module.xFilter = Start;
  module.xNext = GoOn;
  module.xEof = IsAtEnd;
  module.xColumn = SetResult;
  module.xRowid = GetPosition;
  return module;
}

}  // namespace

int AddClassModule(sqlite3* database, TClassSource& source) {
  static const sqlite3_module module = MakeModule();
  const std::string name = source.cimClass->GetName({});
  return sqlite3_create_module_v2(database, name.c_str(), &module, &source, nullptr);
}

}  // namespace NZELVYR20

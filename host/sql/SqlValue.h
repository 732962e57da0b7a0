#pragma once

#include <sqlite3.h>

#include <string>

#include "TCIMValue.h"
#include "TSqlPaths.h"

namespace NZELVYR20 {

/// Gives a text to SQLite, which copies it.
void SetSqlText(sqlite3_context* result, const std::string& text);

/// Gives a stored value to SQLite, in the form that docs/sql.md tells.
void SetSqlValue(sqlite3_context* result, const TCIMValue& value, TSqlPaths& paths);

/// An argument as text; empty for null.
std::string ReadSqlText(sqlite3_value* value);

/// A cell of the present row: null, sint64, real64 or string; a blob as hexadecimal digits.
TCIMValue ReadSqlCell(sqlite3_stmt* statement, int column);

/// A name as SQL takes it, whatever is in it.
std::string QuoteSqlName(const std::string& name);

/// The type with which a column is declared, which says how it compares; with a blank before it.
const char* SqlTypeOf(TCIMValue::TCIMType type);

}  // namespace NZELVYR20

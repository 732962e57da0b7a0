#include "SqlValue.h"

#include <boost/algorithm/string/replace.hpp>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <string>
#include <vector>

#include "JsonText.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// What is no number in SQL, as text.
std::string TextOf(const TCIMValue& value, TSqlPaths& paths) {
  switch (value.GetType()) {
    case TType::kReference:
      return paths.TextOf(static_cast<TCIMReference>(value));
    case TType::kDateTime:
      return static_cast<TCIMDateTime>(value).ToCIMString();
    default:
      return value.ToString(10);
  }
}

std::string BlobText(sqlite3_stmt* statement, int column) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto* const bytes =
      static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
  std::string text;
  for (int i = 0; i < sqlite3_column_bytes(statement, column); ++i) {
    text += {kDigits[bytes[i] / 16], kDigits[bytes[i] % 16]};
  }
  return text;
}

std::string ArrayText(const TCIMValue& array, TSqlPaths& paths) {
  const auto& elements = static_cast<const std::vector<TCIMValue>&>(array);
  std::vector<std::string> items;
  items.reserve(elements.size());
  for (const TCIMValue& element : elements) {
    const bool isPath = element.IsReference() && !element.IsNull();
    items.push_back(isPath ? JsonText(TextOf(element, paths)) : JsonScalar(element));
  }
  return JsonLine("[]", items);
}

void SetUnsigned(sqlite3_context* result, std::uint64_t number) {
  if (number <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    sqlite3_result_int64(result, static_cast<sqlite3_int64>(number));
  } else {
    SetSqlText(result, std::to_string(number));
  }
}

}  // namespace

void SetSqlText(sqlite3_context* result, const std::string& text) {
  sqlite3_result_text64(result, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void SetSqlValue(sqlite3_context* result, const TCIMValue& value, TSqlPaths& paths) {
  if (value.IsNull()) return sqlite3_result_null(result);
  if (value.IsArray()) return SetSqlText(result, ArrayText(value, paths));
  switch (value.GetType()) {
    case TType::kBoolean:
      return sqlite3_result_int(result, static_cast<bool>(value) ? 1 : 0);
    case TType::kUInt8:
      return sqlite3_result_int(result, static_cast<unsigned char>(value));
    case TType::kSInt8:
      return sqlite3_result_int(result, static_cast<signed char>(value));
    case TType::kUInt16:
      return sqlite3_result_int(result, static_cast<unsigned short>(value));
    case TType::kSInt16:
      return sqlite3_result_int(result, static_cast<short>(value));
    case TType::kUInt32:
      return sqlite3_result_int64(result, static_cast<unsigned int>(value));
    case TType::kSInt32:
      return sqlite3_result_int(result, static_cast<int>(value));
    case TType::kUInt64:
      return SetUnsigned(result, static_cast<unsigned long long>(value));
    case TType::kSInt64:
      return sqlite3_result_int64(result, static_cast<long long>(value));
    case TType::kReal32:
      return sqlite3_result_double(result, static_cast<float>(value));
    case TType::kReal64:
      return sqlite3_result_double(result, static_cast<double>(value));
    default:
      return SetSqlText(result, TextOf(value, paths));
  }
}

std::string ReadSqlText(sqlite3_value* value) {
  const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return "";
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

TCIMValue ReadSqlCell(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return static_cast<long long>(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    case SQLITE_BLOB:
      return BlobText(statement, column);
    default: {
      const unsigned char* const text = sqlite3_column_text(statement, column);
      if (text == nullptr) throw std::bad_alloc();
      const int size = sqlite3_column_bytes(statement, column);
      return std::string(reinterpret_cast<const char*>(text), static_cast<std::size_t>(size));
    }
  }
}

std::string QuoteSqlName(const std::string& name) {
  return '"' + boost::replace_all_copy(name, "\"", "\"\"") + '"';
}

const char* SqlTypeOf(TCIMValue::TCIMType type) {
  // Of the largest, which are texts, SQLite would make reals.
  if (type == TType::kUInt64) return "";
  if (type == TType::kReal32 || type == TType::kReal64) return " REAL";
  const bool isNumber = type >= TType::kBoolean && type <= TType::kSInt64;
  return isNumber ? " INTEGER" : " TEXT";
}

}  // namespace NZELVYR20

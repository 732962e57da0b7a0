#include "TOrderedTable.h"

#include <gtest/gtest.h>

#include <boost/make_shared.hpp>
#include <cctype>
#include <string>

namespace NZELVYR20 {
namespace {

using TTable = TOrderedTable<char, const char>;

/// Does what the script says: +k inserts k, *k puts K in its place, -k erases it, !! clears.
void Change(TTable& table, const std::string& script) {
  for (std::size_t i = 0; i < script.size(); i += 2) {
    const char key = script[i + 1];
    const char upper = static_cast<char>(std::toupper(key));
    if (script[i] == '+') table.Insert(key, boost::make_shared<const char>(key));
    if (script[i] == '*') table.Put(key, boost::make_shared<const char>(upper));
    if (script[i] == '-') table.Erase(key);
    if (script[i] == '!') table.Clear();
  }
}

std::string Rest(TTable::TCursor& cursor) {
  std::string rest;
  while (const auto element = cursor.Next()) rest += *element;
  return rest;
}

TEST(TOrderedTableTest, CursorsSurviveChanges) {
  const struct {
    const char* description;
    const char* change;  ///< when b of b, d and f has been handed out
    const char* rest;
  } rows[] = {
      {"the one handed out goes", "-b", "df"}, {"the next goes", "-d", "f"},
      {"the rest goes", "-d-f", ""},           {"others come", "+c+e+g", "df"},
      {"the next is replaced", "*d", "Df"},    {"the next goes and returns", "-d+d", "f"},
      {"all go and return", "!!+b+d+f", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.description);
    TTable table;
    Change(table, "+f+b+d");
    TTable::TCursor first(table);
    TTable::TCursor last(table);
    EXPECT_EQ(*first.Next(), 'b');
    EXPECT_EQ(*last.Next(), 'b');
    Change(table, row.change);
    EXPECT_EQ(Rest(first), row.rest);
    EXPECT_EQ(Rest(last), row.rest);
  }
}

}  // namespace
}  // namespace NZELVYR20

#include <gtest/gtest.h>

#include <boost/algorithm/string.hpp>
#include <cstddef>
#include <utility>

#include "LoadMof.h"
#include "PluginNamespace.h"
#include "SelectInstances.h"
#include "TCommandError.h"
#include "TSampleTree.h"
#include "TSqlStatement.h"

namespace NZELVYR20 {
namespace {

constexpr auto kModel = R"(
Qualifier Key : boolean = false, Scope(any);
Qualifier Association : boolean = false, Scope(any);
Qualifier Units : string = null, Scope(any);
Qualifier Values : string[] = null, Scope(any);
class MY_Box {
  [Key] string Id; string Group; uint64 Big; sint64 Small; real32 Part; boolean On; char16 Sign;
  datetime Since; string Names[]; uint64 Sizes[]; boolean Flags[]; [Values{"off", "on"}] uint8 State;
  [Units("Bytes")] uint64 Size;
};
class MY_SmallBox : MY_Box { string Path; string Class; uint32 Colour; };
class MY_Bag : MY_Box { };
[Association] class MY_In { [Key] MY_Box ref Outer; [Key] MY_Box ref Inner; };
[Association] class MY_FirmlyIn : MY_In { };
instance of MY_Box as $a { Id = "a"; Big = 18446744073709551615; Small = -9223372036854775808;
  Part = 0.5; On = true; Sign = 'x'; Since = "20260102030405.000006+060"; Names = {"q\"", null};
  Sizes = {1, 18446744073709551615}; Flags = {true, false}; State = 1; Size = 2048; };
instance of MY_Box { Id = "it's"; };
instance of MY_SmallBox as $b { Id = "b"; Path = "p"; Colour = 7; };
instance of MY_SmallBox as $c { Id = "c"; };
instance of MY_In { Outer = $a; Inner = $b; };
instance of MY_FirmlyIn { Outer = $b; Inner = $c; };
instance of MY_FirmlyIn { Outer = $a; Inner = $a; };
)";

/// A namespace that has this MOF.
boost::shared_ptr<ICIMNamespace> Load(const std::string& mof) {
  const TSampleTree folder;
  folder.Write("/model.mof", mof);
  auto space = AllocatePluginNamespace();
  LoadMof(space, {folder.GetRoot() + "/model.mof"},
          [](const std::string& message) { ADD_FAILURE() << message; });
  return space;
}

/// Rows in lines, what fails as what is said of it.
std::string Ask(const boost::shared_ptr<ICIMNamespace>& space, const std::string& text) {
  try {
    TSqlStatement statement(space, text);
    std::string rows;
    for (std::vector<TCIMValue> row; statement.Next(row);) {
      std::string line;
      for (const TCIMValue& value : row) {
        line += (line.empty() ? "" : "|") + (value.IsNull() ? "NULL" : value.ToString(10));
      }
      rows += (rows.empty() ? "" : "\n") + line;
    }
    return rows;
  } catch (const TCommandError& failure) {
    return failure.what();
  }
}

TEST(Sql, AnswersAndSaysWhatIsWrong) {
  const auto space = Load(kModel);
  const std::string onlyReads =
      "nothing is changed here: only SELECT, VALUES, WITH and EXPLAIN are understood";
  const std::vector<std::pair<std::string, std::string>> cases = {
      // What stands in columns, and how it compares.
      {"SELECT * FROM my_box WHERE ID = 'a'",
       "MY_Box.Id=\"a\"|MY_Box|18446744073709551615|[true,false]|NULL|a|[\"q\\\"\",null]|1|0.5|x|"
       "20260102030405.000006+060|2048|[1,18446744073709551615]|-9223372036854775808|1"},
      {"SELECT Id FROM MY_Box WHERE Big > 9223372036854775807", "a"},
      {"SELECT typeof(a.Big), typeof(a.Small), typeof(a.Part), typeof(a.\"On\"), typeof(Colour) "
       "FROM MY_Box a LEFT JOIN MY_SmallBox USING (Id) WHERE a.Id = 'a'",
       "text|integer|real|integer|null"},
      {"SELECT count(*) FROM MY_Box WHERE \"Group\" IS NULL AND NOT coalesce(\"On\", 0)", "3"},
      {"SELECT value FROM MY_Box b, json_each(Names) WHERE b.Id = 'a'", "q\"\nNULL"},
      {"SELECT path_, class_, Path FROM MY_SmallBox WHERE Colour = 7",
       "MY_SmallBox.Id=\"b\"|MY_SmallBox|p"},
      // Classes, paths and references that are looked up.
      {"SELECT Id FROM MY_Box", "a\nit's\nb\nc"},
      {"SELECT Id FROM MY_Box WHERE class = 'my_smallbox'", "b\nc"},
      {"SELECT Id FROM MY_SmallBox WHERE class_ IN ('MY_Box', 'MY_Nope')", ""},
      {"SELECT Id FROM MY_Box WHERE path IN ('MY_Box.Id=\"it''s\"', 'MY_SmallBox.Id=\"c\"', 'x')",
       "it's\nc"},
      {"SELECT Id FROM MY_SmallBox WHERE path_ = 'MY_Box.Id=\"a\"'", ""},
      {"SELECT Id FROM MY_Box WHERE path = 'my_box.ID=\"a\"'", ""},
      {"SELECT Id FROM MY_Box WHERE path = 'my_box.ID=\"a\"' COLLATE NOCASE", "a"},
      {"SELECT Id FROM MY_Box WHERE path = NULL OR path = 5 OR path = ''", ""},
      {"SELECT i.Id FROM MY_Box o JOIN MY_In a ON a.Outer = o.path JOIN MY_Box i ON "
       "i.path = a.Inner WHERE o.Id = 'a' ORDER BY 1",
       "a\nb"},
      {"SELECT class FROM MY_FirmlyIn WHERE Outer = 'MY_Box.Id=\"a\"'", "MY_FirmlyIn"},
      {"SELECT count(*) FROM MY_In a, MY_Box b WHERE a.Outer = b.path OR a.Inner = b.path", "5"},
      {"SELECT rowid FROM MY_Box WHERE path = 'MY_SmallBox.Id=\"b\"'", "3"},
      // What people read.
      {"SELECT display(path, 'State'), display(path, 'SIZE'), display(path, 'Names'), "
       "display(path, 'Group'), display(path, 'Colour') FROM MY_Box WHERE Id = 'a'",
       "on|2 Kilobytes|{q\", }|NULL|NULL"},
      {"SELECT display('MY_SmallBox.Id=\"b\"', 'Colour'), display('nowhere', 'Id')", "7|NULL"},
      {"SELECT display(path, 'Colur') FROM MY_Box",
       "SQL: display(): no class has a property Colur; did you mean Colour?"},
      {"SELECT display(path, 'no name') FROM MY_Box",
       "SQL: display(): no class has a property no name"},
      // Nothing else.
      {"DELETE FROM MY_Box", "SQL: table MY_Box may not be modified"},
      {"UPDATE sqlite_master SET sql = 1", "SQL: table sqlite_master may not be modified"},
      {"ATTACH 'x' AS y", "SQL: column 1: " + onlyReads},
      {"PRAGMA writable_schema = 1", "SQL: column 1: " + onlyReads},
      {"VACUUM INTO 'x'", "SQL: column 1: " + onlyReads},
      {"CREATE TEMP TABLE x(a)", "SQL: column 1: " + onlyReads},
      {"BEGIN", "SQL: column 1: " + onlyReads},
      {"SELECT load_extension('x')", "SQL: not authorized"},
      {"SELECT name FROM pragma_table_info('MY_In')", "path\nclass\nInner\nOuter"},
      // What is no statement, and where.
      {"", "SQL: there is no statement"},
      {" -- nothing\n;", "SQL: there is no statement"},
      {"VALUES (1, x'0aFF', 2.5, NULL);;\n", "1|0AFF|2.5|NULL"},
      {"SELECT 1;\n SELECT 2",
       "SQL: line 2, column 2: a second statement begins; one is answered "
       "at a time"},
      {std::string("SELECT 1\0", 9), "SQL: column 9: a NUL character"},
      {"SELECT $x", "SQL: column 8: a parameter, which has no value"},
      {"SELEC 1", "SQL: column 1: near \"SELEC\": syntax error"},
      {"SELECT '\u00E9', b.Nam\nFROM MY_Box b", "SQL: column 13: no such column: b.Nam"},
      {"SELECT Colur FROM MY_SmallBox",
       "SQL: column 8: no such column: Colur; did you mean Colour?"},
      {"SELECT *\nFROM MY_Bux",
       "SQL: line 2, column 6: no such table: MY_Bux; did you mean MY_Box?"},
      {"SELECT 1 FROM MY_Box WHERE Id = \"a\"",
       "SQL: column 33: no such column: a; a text stands in single quotes"},
  };
  for (const auto& [text, answer] : cases) EXPECT_EQ(Ask(space, text), answer) << text;
  EXPECT_EQ(TSqlStatement(space, "SELECT Id, id, 1 AS ID FROM MY_Box").GetColumns(),
            (std::vector<std::string>{"Id", "Id:1", "ID:2"}));
  EXPECT_EQ(Ask(space, "SELECT " + std::string(2000000, ' ') + "1"), "1");
}

TEST(Sql, SelectsInstancesInTheirOrder) {
  const auto space = Load(kModel);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"1", "a it's b c"},
      {"path IN ('MY_SmallBox.Id=\"c\"', 'MY_Box.Id=\"a\"') -- twice", "a c"},
      {"On OR EXISTS (SELECT * FROM MY_In WHERE Inner = path)",
       "SQL expression: column 1: near "
       "\"On\": syntax error"},
      {"EXISTS (SELECT * FROM MY_In a WHERE a.Inner = MY_Box.path AND class = 'MY_FirmlyIn')",
       "a c"},
      {"\"Order\" = 1",
       "SQL expression: column 1: no such column: Order; a text stands in single "
       "quotes"},
      {"Stat > 0", "SQL expression: column 1: no such column: Stat; did you mean State?"},
      {"Id =", "SQL expression: incomplete input"},
      {"1 LIMIT 1", "SQL expression: column 3: near \"LIMIT\": syntax error"},
      {"1) OR (1", "SQL expression: column 2: near \")\": syntax error"},
      {"count(*)", "SQL expression: column 1: misuse of aggregate function count()"},
  };
  for (const auto& [where, answer] : cases) {
    std::string found;
    try {
      for (const auto& instance : SelectInstances(space, "my_BOX", true, where)) {
        found += ' ' + instance->GetProperty("Id", {})->GetValue({}).ToString(10);
      }
      boost::trim(found);
    } catch (const TCommandError& failure) {
      found = failure.what();
    }
    EXPECT_EQ(found, answer) << where;
  }
  EXPECT_EQ(SelectInstances(space, "MY_Box", false, "1").size(), 2U);
  EXPECT_THROW(SelectInstances(space, "MY_Nope", true, "1"), TCommandError);
}

TEST(Sql, JoinsByLookUpsAndWalks) {
  const auto space = Load(kModel);
  const std::string join =
      "FROM MY_Box o JOIN MY_In a ON a.Outer = o.path JOIN MY_Box i ON i.path = a.Inner";
  const std::string plan =
      Ask(space, "EXPLAIN QUERY PLAN SELECT i.Id " + join + " WHERE o.path = 'MY_Box.Id=\"a\"'");
  for (const char* step : {"o VIRTUAL TABLE INDEX 1:path=?", "a VIRTUAL TABLE INDEX 4:Outer=?",
                           "i VIRTUAL TABLE INDEX 1:path=?"}) {
    EXPECT_NE(plan.find(step), std::string::npos) << plan;
  }
}

}  // namespace
}  // namespace NZELVYR20

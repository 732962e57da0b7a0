#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AddCommands.h"
#include "SaveDatabase.h"
#include "TCommandError.h"
#include "TFormatOption.h"
#include "TRowWriter.h"
#include "TSqlStatement.h"

namespace NZELVYR20 {
namespace {

struct TSqlArguments {
  std::optional<std::string> statement;
  std::optional<std::string> file;
  std::optional<EFormat> format;
};

/// A dash stands for standard input.
std::string ReadStatement(const std::string& given) {
  return given == "-" ? std::string(std::istreambuf_iterator<char>(std::cin), {}) : given;
}

void WriteRows(const std::string& given, EFormat format, const TCommandContext& context) {
  TSqlStatement statement(context.nameSpace, ReadStatement(given));
  const auto writer =
      TRowWriter::Make(format, statement.GetColumns(), context.terminal, context.write);
  std::vector<TCIMValue> values;
  while (statement.Next(values)) {
    TRow row;
    row.reserve(values.size());
    for (const TCIMValue& value : values) row.push_back({value, std::nullopt});
    writer->Add(row);
  }
  writer->Finish();
}

int PerformSql(const TSqlArguments& given, const TCommandContext& context) {
  if (!given.statement && !given.file) {
    throw TUsageError("a STATEMENT or --save is required", "vyrhost sql --help");
  }
  const auto format = given.format ? given.format : context.options.format;
  if (given.file) SaveDatabase(context.nameSpace, *given.file);
  if (given.statement) WriteRows(*given.statement, format.value_or(EFormat::kTable), context);
  return 0;
}

}  // namespace

void AddSqlCommand(TCommandSet& commands) {
  const auto given = std::make_shared<TSqlArguments>();
  CLI::App* sql = commands.Add(
      "sql", "Answer a question in SQL, in which each class is a table", ENeeds::kInstances,
      [given](const TCommandContext& context) { return PerformSql(*given, context); });
  sql->add_option("STATEMENT", given->statement,
                  "A SELECT, for example; - reads it from standard input")
      ->type_name("");
  TFormatOption::AddTo(*sql, given->format, "table, json, jsonl or csv", false);
  sql->add_option("--save", given->file, "Write all instances into a database file of SQLite")
      ->type_name("FILE");
}

}  // namespace NZELVYR20

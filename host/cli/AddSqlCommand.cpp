#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "AddCommands.h"
#include "TRowWriter.h"
#include "TSqlStatement.h"

namespace NZELVYR20 {
namespace {

struct TSqlArguments {
  std::string statement;
  std::optional<EFormat> format;
};

void WriteRows(const TSqlArguments& given, const TCommandContext& context) {
  TSqlStatement statement(context.nameSpace, given.statement);
  const auto writer = TRowWriter::Make(given.format.value_or(EFormat::kTable),
                                       statement.GetColumns(), context.terminal, context.write);
  std::vector<TCIMValue> values;
  while (statement.Next(values)) {
    TRow row;
    row.reserve(values.size());
    for (const TCIMValue& value : values) row.push_back({value, std::nullopt});
    writer->Add(row);
  }
  writer->Finish();
}

}  // namespace

void AddSqlCommand(TCommandSet& commands) {
  const auto given = std::make_shared<TSqlArguments>();
  CLI::App* sql = commands.Add("sql", "Answer a question in SQL, in which each class is a table",
                               ENeeds::kInstances, [given](const TCommandContext& context) {
                                 WriteRows(*given, context);
                                 return 0;
                               });
  sql->add_option("STATEMENT", given->statement, "What is asked, such as \"SELECT ...\"")
      ->required()
      ->type_name("");
}

}  // namespace NZELVYR20

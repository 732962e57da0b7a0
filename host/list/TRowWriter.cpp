#include "TRowWriter.h"

#include <cstddef>
#include <string>
#include <utility>

#include "JsonText.h"
#include "TCsvWriter.h"
#include "TJsonList.h"
#include "TPrinter.h"
#include "TTable.h"

namespace NZELVYR20 {
namespace {

using TNames = std::vector<std::string>;

class TJsonRows : public TRowWriter {
 public:
  TJsonRows(const TNames& columns, bool isLines, const TWriteText& write)
      : names_(JsonTexts(columns)), list_(isLines, write) {}

  void Add(const TRow& row) override {
    TNames members;
    members.reserve(row.size());
    for (std::size_t i = 0; i < row.size(); ++i) {
      members.push_back(names_[i] + ':' + JsonValue(row[i].value));
    }
    list_.Add(JsonLine("{}", members));
  }

  void Finish() override { list_.Finish(); }

 private:
  TNames names_;
  TJsonList list_;
};

TCsvWriter::TField CsvField(const TCell& cell) {
  if (cell.value.IsNull()) return std::nullopt;
  return cell.text ? cell.text : TPrinter::StoredText(cell.value);
}

class TCsvRows : public TRowWriter {
 public:
  TCsvRows(const TNames& columns, const TWriteText& write) : writer_(write) {
    writer_.Add({columns.begin(), columns.end()});
  }

  void Add(const TRow& row) override {
    std::vector<TCsvWriter::TField> fields;
    fields.reserve(row.size());
    for (const TCell& cell : row) fields.push_back(CsvField(cell));
    writer_.Add(fields);
  }

  void Finish() override {}

 private:
  TCsvWriter writer_;
};

/// A table or, where that would be hard to read, the values of each row below each other.
class TTableRows : public TRowWriter {
 public:
  TTableRows(const TNames& columns, const TTerminal& terminal, TWriteText write)
      : terminal_(terminal), write_(std::move(write)), table_(0, terminal) {
    table_.SetHeader(columns);
  }

  void Add(const TRow& row) override {
    TNames cells;
    cells.reserve(row.size());
    for (const TCell& cell : row) {
      cells.push_back(cell.text ? *cell.text : TPrinter::ValueText(cell.value));
    }
    table_.AddRow(std::move(cells));
  }

  void Finish() override {
    const std::vector<TNames>& rows = table_.GetRows();
    if (rows.front().empty()) return;
    if (table_.IsReadable()) return write_(table_.ToString());
    for (std::size_t i = 1; i < rows.size(); ++i) {
      write_((i > 1 ? "\n" : "") + RecordText(rows.front(), rows[i]));
    }
  }

 private:
  /// Without empty values, but for the first, which tells the records apart.
  std::string RecordText(const TNames& names, const TNames& cells) const {
    TTable record(0, terminal_);
    for (std::size_t i = 0; i < cells.size(); ++i) {
      if (i == 0 || !cells[i].empty()) record.AddRow({names[i], cells[i]});
    }
    return record.ToString();
  }

  TTerminal terminal_;
  TWriteText write_;
  TTable table_;
};

}  // namespace

std::unique_ptr<TRowWriter> TRowWriter::Make(EFormat format, const TNames& columns,
                                             const TTerminal& terminal, const TWriteText& write) {
  switch (format) {
    case EFormat::kJson:
    case EFormat::kJsonLines:
      return std::make_unique<TJsonRows>(columns, format == EFormat::kJsonLines, write);
    case EFormat::kCsv:
      return std::make_unique<TCsvRows>(columns, write);
    default:
      return std::make_unique<TTableRows>(columns, terminal, write);
  }
}

}  // namespace NZELVYR20

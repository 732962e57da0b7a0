#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TTerminal.h"

namespace NZELVYR20 {

/// Rows of cells, laid out in columns that are as wide as their widest cell. The last cell of a
/// row that is shorter than others takes no part in that.
///
/// For programs each row stays one line, whatever is in its cells. On a terminal that is too narrow
/// the widest columns give way, and their cells are folded.
class TTable {
 public:
  using TCells = std::vector<std::string>;

  /// `indent` blanks stand before every row.
  explicit TTable(std::size_t indent, const TTerminal& reader = {});

  /// The first row; people see a rule below it.
  void SetHeader(TCells cells);
  void AddRow(TCells cells);

  /// The header among them, as they are shown.
  const std::vector<TCells>& GetRows() const { return rows_; }

  /// Whether no column would have to be so narrow that its cells are hard to read.
  bool IsReadable() const;

  /// The rows in their order, without blanks at the ends of lines.
  std::string ToString() const;
  void AppendTo(std::string& text) const;

 private:
  using TWidths = std::vector<std::size_t>;

  TWidths MeasureColumns() const;
  std::size_t Limit(TWidths widths) const;
  void AppendRow(std::string& text, const TCells& row, const TWidths& widths) const;
  void AppendRule(std::string& text, const TWidths& widths) const;

  std::size_t indent_;
  TTerminal reader_;
  bool hasHeader_ = false;
  std::vector<TCells> rows_;
};

}  // namespace NZELVYR20

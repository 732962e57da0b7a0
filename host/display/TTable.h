#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// Rows of cells, laid out in columns that are as wide as their widest cell. The last cell of a
/// row takes no part in that: it runs on as far as it needs. Each row stays one line, whatever is
/// in its cells.
class TTable {
 public:
  /// `indent` blanks stand before every row.
  explicit TTable(std::size_t indent);

  void AddRow(std::vector<std::string> cells);

  /// One line for each row, without blanks at its end.
  std::string ToString() const;
  void AppendTo(std::string& text) const;

 private:
  std::vector<std::size_t> MeasureColumns() const;

  std::size_t indent_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace NZELVYR20

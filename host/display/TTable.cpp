#include "TTable.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "TText.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kGap = 2;

void AppendLine(std::string& text, const std::vector<std::string>& cells,
                const std::vector<std::size_t>& widths, std::size_t indent) {
  text.append(indent, ' ');
  for (std::size_t column = 0; column < cells.size(); ++column) {
    text += cells[column];
    if (column + 1 < cells.size()) text.append(widths[column] - cells[column].size() + kGap, ' ');
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text += '\n';
}

}  // namespace

TTable::TTable(std::size_t indent) : indent_(indent) {}

void TTable::AddRow(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = TText::OneLine(cell);
  rows_.push_back(std::move(cells));
}

std::vector<std::size_t> TTable::MeasureColumns() const {
  std::vector<std::size_t> widths;
  for (const auto& row : rows_) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column + 1 < row.size(); ++column) {
      widths[column] = std::max(widths[column], row[column].size());
    }
  }
  return widths;
}

void TTable::AppendTo(std::string& text) const {
  const std::vector<std::size_t> widths = MeasureColumns();
  for (const auto& row : rows_) AppendLine(text, row, widths, indent_);
}

std::string TTable::ToString() const {
  std::string text;
  AppendTo(text);
  return text;
}

}  // namespace NZELVYR20

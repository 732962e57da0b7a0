#include "TTable.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "TText.h"
#include "TextWidth.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kGap = 2;
/// A column that holds less is hard to read.
constexpr std::size_t kNarrow = 12;
constexpr std::size_t kNoLimit = std::string::npos;

/// Ends a line, without blanks at its end.
void EndLine(std::string& text, std::string line) {
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + '\n';
}

}  // namespace

TTable::TTable(std::size_t indent, const TTerminal& reader) : indent_(indent), reader_(reader) {}

void TTable::SetHeader(TCells cells) {
  AddRow(std::move(cells));
  hasHeader_ = true;
}

void TTable::AddRow(TCells cells) {
  for (std::string& cell : cells) cell = TText::OneLine(cell);
  rows_.push_back(std::move(cells));
}

/// The last column's width is that of the cells in it, none of which another follows.
TTable::TWidths TTable::MeasureColumns() const {
  TWidths widths;
  for (const TCells& row : rows_) widths.resize(std::max(widths.size(), row.size()));
  for (const TCells& row : rows_) {
    for (std::size_t column = 0; column < row.size(); ++column) {
      const bool isCounted = column + 1 < row.size() || column + 1 == widths.size();
      if (isCounted) widths[column] = std::max(widths[column], TextWidth(row[column]));
    }
  }
  return widths;
}

/// How wide a column may be at most if all are to fit.
std::size_t TTable::Limit(TWidths widths) const {
  if (!reader_.isTerminal || widths.empty()) return kNoLimit;
  const std::size_t lost = indent_ + kGap * (widths.size() - 1);
  std::size_t rest = reader_.width - std::min(reader_.width, lost);
  std::sort(widths.begin(), widths.end());
  for (std::size_t i = 0; i < widths.size(); ++i) {
    const std::size_t share = rest / (widths.size() - i);
    if (widths[i] > share) return std::max<std::size_t>(share, 1);
    rest -= widths[i];
  }
  return kNoLimit;
}

bool TTable::IsReadable() const { return Limit(MeasureColumns()) >= kNarrow; }

void TTable::AppendRow(std::string& text, const TCells& row, const TWidths& widths) const {
  std::vector<TCells> folded;
  std::size_t height = 1;
  for (std::size_t column = 0; column < row.size(); ++column) {
    folded.push_back(reader_.isTerminal ? FoldText(row[column], widths[column])
                                        : TCells{row[column]});
    height = std::max(height, folded.back().size());
  }
  for (std::size_t i = 0; i < height; ++i) {
    std::string line(indent_, ' ');
    for (std::size_t column = 0; column < row.size(); ++column) {
      const std::string cell = i < folded[column].size() ? folded[column][i] : std::string();
      const std::size_t used = TextWidth(cell);
      line += cell;
      if (column + 1 < row.size()) line.append(widths[column] - used + kGap, ' ');
    }
    EndLine(text, std::move(line));
  }
}

void TTable::AppendRule(std::string& text, const TWidths& widths) const {
  std::string line(indent_, ' ');
  for (const std::size_t width : widths) {
    for (std::size_t i = 0; i < width; ++i) line += reader_.isUnicode ? "\xE2\x94\x80" : "-";
    line.append(kGap, ' ');
  }
  EndLine(text, std::move(line));
}

void TTable::AppendTo(std::string& text) const {
  TWidths widths = MeasureColumns();
  const std::size_t limit = Limit(widths);
  for (std::size_t& width : widths) width = std::min(width, limit);
  for (const TCells& row : rows_) {
    AppendRow(text, row, widths);
    const bool isHeader = hasHeader_ && &row == &rows_.front();
    if (isHeader && reader_.isTerminal) AppendRule(text, widths);
  }
}

std::string TTable::ToString() const {
  std::string text;
  AppendTo(text);
  return text;
}

}  // namespace NZELVYR20

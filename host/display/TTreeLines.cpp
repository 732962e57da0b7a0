#include "TTreeLines.h"

#include <string>
#include <utility>
#include <vector>

#include "TText.h"

namespace NZELVYR20 {
namespace {

/// Of an element that is deeper only so many levels are drawn: else a chain's drawing grew with the
/// square of its length.
constexpr std::size_t kDrawnLevels = 32;

bool IsAscii(const TTerminal& terminal) { return terminal.isTerminal && !terminal.isUnicode; }

}  // namespace

const char* Ellipsis(const TTerminal& terminal) { return IsAscii(terminal) ? "..." : "…"; }

void DrawTreeLines(const std::vector<TTreeLine>& lines, const TTerminal& terminal,
                   const TWriteText& write) {
  std::vector<bool> isLast(lines.size());
  std::vector<bool> hasNext;  // of each level, below the same element
  for (std::size_t i = lines.size(); i-- > 0;) {
    hasNext.resize(lines[i].level + 1);
    isLast[i] = !hasNext.back();
    hasNext.back() = true;
  }
  TTreeLines drawing(terminal, write);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    drawing.Add(lines[i].level, isLast[i], lines[i].text);
  }
}

TTreeLines::TTreeLines(const TTerminal& terminal, TWriteText write)
    : terminal_(terminal), write_(std::move(write)) {}

void TTreeLines::Add(std::size_t level, bool isLast, const std::string& text) {
  isLast_.resize(level);
  if (level > 0) isLast_[level - 1] = isLast;
  const std::string line = Margin() + text;
  write_((terminal_.isTerminal ? TText::Cut(line, terminal_.width, Ellipsis(terminal_)) : line) +
         '\n');
}

std::string TTreeLines::Margin() const {
  if (isLast_.empty()) return "";
  const std::size_t above = isLast_.size() - 1;
  std::string margin;
  if (above > kDrawnLevels) margin += std::string(Ellipsis(terminal_)) + ' ';
  for (std::size_t i = above > kDrawnLevels ? above - kDrawnLevels : 0; i < above; ++i) {
    const char* const line = IsAscii(terminal_) ? "|   " : "│   ";
    margin += isLast_[i] ? "    " : line;
  }
  if (IsAscii(terminal_)) return margin + (isLast_.back() ? "`-- " : "|-- ");
  return margin + (isLast_.back() ? "└── " : "├── ");
}

}  // namespace NZELVYR20

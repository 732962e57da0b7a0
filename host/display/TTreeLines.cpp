#include "TTreeLines.h"

#include <string>
#include <utility>

#include "TText.h"

namespace NZELVYR20 {
namespace {

/// Of an element that is deeper only so many levels are drawn: else a chain's drawing grew with the
/// square of its length.
constexpr std::size_t kDrawnLevels = 32;

}  // namespace

TTreeLines::TTreeLines(const TTerminal& terminal, TWriteText write)
    : width_(terminal.isTerminal ? terminal.width : 0),
      isUnicode_(terminal.isUnicode || !terminal.isTerminal),
      write_(std::move(write)) {}

void TTreeLines::Add(std::size_t level, bool isLast, const std::string& text) {
  isLast_.resize(level);
  if (level > 0) isLast_[level - 1] = isLast;
  const std::string line = Margin() + text;
  write_((width_ == 0 ? line : TText::Cut(line, width_, GetEllipsis())) + '\n');
}

std::string TTreeLines::Margin() const {
  if (isLast_.empty()) return "";
  const std::size_t above = isLast_.size() - 1;
  std::string margin;
  if (above > kDrawnLevels) margin += std::string(GetEllipsis()) + ' ';
  for (std::size_t i = above > kDrawnLevels ? above - kDrawnLevels : 0; i < above; ++i) {
    const char* const line = isUnicode_ ? "│   " : "|   ";
    margin += isLast_[i] ? "    " : line;
  }
  if (!isUnicode_) return margin + (isLast_.back() ? "`-- " : "|-- ");
  return margin + (isLast_.back() ? "└── " : "├── ");
}

}  // namespace NZELVYR20

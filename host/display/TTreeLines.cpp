#include "TTreeLines.h"

#include <string>
#include <utility>

namespace NZELVYR20 {
namespace {

/// Of an element that is deeper only so many levels are drawn: else a chain's drawing grew with the
/// square of its length.
constexpr std::size_t kDrawnLevels = 32;

bool StartsCharacter(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }

/// Where the character of that number begins; the end where there are fewer.
std::size_t FindCharacter(const std::string& text, std::size_t number) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (StartsCharacter(text[at]) && number-- == 0) return at;
  }
  return text.size();
}

}  // namespace

TTreeLines::TTreeLines(const TTerminal& terminal, TWriteText write)
    : width_(terminal.isTerminal ? terminal.width : 0),
      isUnicode_(terminal.isUnicode || !terminal.isTerminal),
      write_(std::move(write)) {}

void TTreeLines::Add(std::size_t level, bool isLast, const std::string& text) {
  isLast_.resize(level);
  if (level > 0) isLast_[level - 1] = isLast;
  write_(Cut(Margin() + text) + '\n');
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

std::string TTreeLines::Cut(const std::string& line) const {
  if (width_ == 0 || FindCharacter(line, width_) == line.size()) return line;
  const std::size_t room = isUnicode_ ? 1 : 3;
  return line.substr(0, FindCharacter(line, width_ > room ? width_ - room : 0)) + GetEllipsis();
}

}  // namespace NZELVYR20

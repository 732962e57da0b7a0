#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "TTerminal.h"
#include "TWriteText.h"

namespace NZELVYR20 {

/// A drawing of a tree, line by line: whoever walks down the tree adds what he meets. So the way
/// down is the walker's, and a tree may be deeper than the stack. On a terminal no line is wider
/// than that, and where it shows nothing but ASCII, the drawing is made of that.
class TTreeLines {
 public:
  TTreeLines(const TTerminal& terminal, TWriteText write);

  /// Writes an element; the top is of level 0. `isLast` says that no sibling follows it. The text
  /// is one line.
  void Add(std::size_t level, bool isLast, const std::string& text);

 private:
  std::string Margin() const;

  TTerminal terminal_;
  TWriteText write_;
  std::vector<bool> isLast_;  ///< of the element at each level but 0
};

/// An element of a tree, which stands below the nearest before it that is of a lower level.
struct TTreeLine {
  std::size_t level;
  std::string text;
};

/// Writes a tree, or several, all lines of which are known.
void DrawTreeLines(const std::vector<TTreeLine>& lines, const TTerminal& terminal,
                   const TWriteText& write);

/// What stands for something that was left out.
const char* Ellipsis(const TTerminal& terminal);

}  // namespace NZELVYR20

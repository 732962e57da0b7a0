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

  /// What stands for something that was left out.
  const char* GetEllipsis() const { return isUnicode_ ? "…" : "..."; }

 private:
  std::string Margin() const;

  std::size_t width_;  ///< 0 for any
  bool isUnicode_;
  TWriteText write_;
  std::vector<bool> isLast_;  ///< of the element at each level but 0
};

}  // namespace NZELVYR20

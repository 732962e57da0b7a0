#pragma once

#include <cstddef>

namespace NZELVYR20 {

/// What the reader of an output can do with it.
struct TTerminal {
  bool isTerminal = false;  ///< a person's; otherwise a file or another program
  std::size_t width = 80;   ///< in columns; of no meaning where it is no terminal
  bool isUnicode = true;    ///< lines may be drawn with more than ASCII
};

}  // namespace NZELVYR20

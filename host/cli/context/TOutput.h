#pragma once

#include <string>

#include "TMemoryWatch.h"

namespace NZELVYR20 {

/// Thrown, and shown to nobody, where nobody reads the output any more.
struct TReaderGone {};

/// Standard output in large pieces, each of which goes out only where no memory was lacking until
/// then. What is short is written whole or not at all.
class TOutput {
 public:
  /// `watch` outlives the object.
  explicit TOutput(const TMemoryWatch& watch) : watch_(watch) {}

  /// Throws TReaderGone, TCommandError for every other failure to write, and std::bad_alloc.
  void Write(const std::string& text);
  /// Writes what is left.
  void Flush();

 private:
  const TMemoryWatch& watch_;
  std::string pending_;
};

}  // namespace NZELVYR20

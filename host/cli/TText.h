#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// Text for a terminal.
class TText {
 public:
  TText() = delete;

  /// The text with control characters written as \n, \t or \xNN: whatever a machine's files or a
  /// user's arguments contain, it stays one line and drives no terminal.
  static std::string OneLine(const std::string& text);
  /// The same, but line ends and tabs stay what they are.
  static std::string Printable(const std::string& text);

  /// The text in lines of at most `width` bytes, broken behind blanks and commas. A longer stretch
  /// without either stays whole.
  static std::vector<std::string> Wrap(const std::string& text, std::size_t width);

  static std::string Join(const std::vector<std::string>& parts, const std::string& separator);

  /// "1 instance", "2 instances".
  static std::string Count(std::size_t number, const std::string& noun);
};

}  // namespace NZELVYR20

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// Text for a terminal.
class TText {
 public:
  TText() = delete;

  /// The text with what a terminal would obey instead of showing it made visible: control
  /// characters, marks and overrides of the direction, and bytes that are no UTF-8 become \n, \t or
  /// \xNN for each byte. Whatever a machine's files or a user's arguments contain stays one line.
  static std::string OneLine(const std::string& text);
  /// The same, but line ends and tabs stay what they are.
  static std::string Printable(const std::string& text);
  /// Whether the text is shown as it is.
  static bool IsVisible(const std::string& text);
  /// An object path as it was before OneLine(). In a path a back-slash stands before a quote or a
  /// back-slash only, so that the two cannot be taken for each other.
  static std::string RestorePath(const std::string& path);

  /// The text in lines of at most `width` bytes, broken after blanks and commas. A longer stretch
  /// without either stays whole.
  static std::vector<std::string> Wrap(const std::string& text, std::size_t width);

  /// The text, or where it takes more than `width` columns, its beginning and the mark in so many.
  static std::string Cut(const std::string& text, std::size_t width, const std::string& mark);

  static std::string Join(const std::vector<std::string>& parts, const std::string& separator);

  /// "1 instance", "2 instances".
  static std::string Count(std::size_t number, const std::string& noun);
};

}  // namespace NZELVYR20

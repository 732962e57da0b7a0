#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

constexpr int kHexadecimal = 16;  ///< the base of such numbers

/// The text without the blanks, line ends and NULs around it: kernel files end with either.
std::string_view Trim(std::string_view text);

/// The lines, without LF; a CR before it stays, for trimming. The views point into `text`.
std::vector<std::string_view> SplitLines(std::string_view text);

/// The words between runs of blanks.
std::vector<std::string_view> SplitWords(std::string_view text);

/// A name and a value around the first `separator`, both trimmed.
struct TField {
  std::string_view name;
  std::string_view value;
};

/// Nothing where the line lacks the separator.
std::optional<TField> SplitField(std::string_view line, char separator);

/// A whole number without sign that makes up all of the trimmed text; nothing for anything else,
/// and for one that does not fit.
std::optional<std::uint64_t> ParseUnsigned(std::string_view text, int base = 10);

/// The same for a narrower type.
template <class TNumber>
std::optional<TNumber> ParseNumber(std::string_view text) {
  const std::optional<std::uint64_t> number = ParseUnsigned(text);
  if (!number || *number > std::numeric_limits<TNumber>::max()) return std::nullopt;
  return static_cast<TNumber>(*number);
}

/// The sum or product; nothing where a part is unknown or the result does not fit.
std::optional<std::uint64_t> Add(std::optional<std::uint64_t> left,
                                 std::optional<std::uint64_t> right);
std::optional<std::uint64_t> Multiply(std::optional<std::uint64_t> left, std::uint64_t right);

}  // namespace NZELVYR20

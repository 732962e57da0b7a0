#include "TextFields.h"

#include <charconv>

namespace NZELVYR20 {
namespace {

constexpr std::string_view kBlanks{" \t\r\n\v\f\0", 7};

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::vector<std::string_view> SplitWords(std::string_view text) {
  std::vector<std::string_view> words;
  for (text = Trim(text); !text.empty(); text = Trim(text)) {
    const std::string_view word = text.substr(0, text.find_first_of(kBlanks));
    words.push_back(word);
    text.remove_prefix(word.size());
  }
  return words;
}

std::optional<TField> SplitField(std::string_view line, char separator) {
  const std::size_t position = line.find(separator);
  if (position == std::string_view::npos) return std::nullopt;
  return TField{Trim(line.substr(0, position)), Trim(line.substr(position + 1))};
}

std::optional<std::uint64_t> ParseUnsigned(std::string_view text, int base) {
  text = Trim(text);
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const std::from_chars_result result = std::from_chars(text.data(), end, number, base);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

std::optional<std::uint64_t> Add(std::optional<std::uint64_t> left,
                                 std::optional<std::uint64_t> right) {
  std::uint64_t sum = 0;
  if (!left || !right || __builtin_add_overflow(*left, *right, &sum)) return std::nullopt;
  return sum;
}

std::optional<std::uint64_t> Multiply(std::optional<std::uint64_t> left, std::uint64_t right) {
  std::uint64_t product = 0;
  if (!left || __builtin_mul_overflow(*left, right, &product)) return std::nullopt;
  return product;
}

}  // namespace NZELVYR20

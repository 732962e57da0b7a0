#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {

/// How many columns of a terminal a text takes that has nothing but visible characters, by the
/// system's knowledge of combining and of wide ones.
std::size_t TextWidth(const std::string& text);

/// How many bytes of a text stand in its first `width` columns.
std::size_t SizeWithin(std::string_view text, std::size_t width);

/// The text in lines of at most `width` columns, broken after blanks and commas, else after dots,
/// colons, slashes and equals signs, else between any two characters. At least one line; blanks
/// where one was broken are left out.
std::vector<std::string> FoldText(const std::string& text, std::size_t width);

}  // namespace NZELVYR20

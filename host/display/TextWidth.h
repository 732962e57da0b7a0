#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace NZELVYR20 {

/// How many columns of a terminal a text takes that has nothing but visible characters, by the
/// system's knowledge of combining and of wide ones.
std::size_t TextWidth(const std::string& text);

/// The text in lines of at most `width` columns, broken after blanks and commas, else after dots,
/// colons, slashes and equals signs, else between any two characters. At least one line; blanks
/// where one was broken are left out.
std::vector<std::string> FoldText(const std::string& text, std::size_t width);

}  // namespace NZELVYR20

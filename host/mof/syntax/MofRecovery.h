#pragma once

#include <cstddef>
#include <string_view>

namespace NZELVYR20 {

/// Where, after a declaration that begins at `start` and cannot be read from `error` on, the next
/// one plausibly begins; the text's size where there is none.
///
/// That is after a ";" outside of braces, or a line that begins, without blanks, as declarations
/// do. Strings and comments hide both; a string ends with its line here, since a quote that was
/// forgotten would turn all that follows inside out.
std::size_t FindNextDeclaration(std::string_view text, std::size_t start, std::size_t error);

/// Whether anything in the text looks like the beginning of a declaration.
bool HoldsDeclaration(std::string_view text);

}  // namespace NZELVYR20

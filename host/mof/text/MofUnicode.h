#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace NZELVYR20 {

/// The bytes of a file as UTF-8 without a mark: UTF-8 with or without one, or UTF-16 with one.
/// Throws std::invalid_argument, naming what is wrong and where, if they are neither; a NUL
/// character is wrong in any case.
std::string DecodeMofText(std::string bytes);

/// The code of what stands where no character can be told.
constexpr std::uint32_t kReplacement = 0xFFFD;

/// Adds the character of that code, which is no half of a pair, in UTF-8.
void AppendUtf8(std::string& text, std::uint32_t code);

/// The code of the character that begins a valid UTF-8 text.
std::uint32_t DecodeUtf8(std::string_view text);

}  // namespace NZELVYR20

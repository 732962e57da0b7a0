#pragma once

#include <cstdint>
#include <string_view>

namespace NZELVYR20 {

/// What may stand between elements.
constexpr std::string_view kXmlBlanks = " \t\r\n";

/// Whether XML 1.0 has a character of that code; a code that is no character's is none of its own.
constexpr bool IsXmlCharacter(std::uint32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  return code < 0xD800 || (code > 0xDFFF && code < 0xFFFE) || (code > 0xFFFF && code < 0x110000);
}

}  // namespace NZELVYR20

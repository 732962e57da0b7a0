#include "PercentText.h"

#include <charconv>
#include <cstddef>

namespace NZELVYR20 {

std::string DecodePercent(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned char code = 0;
    const char* const digits = text.data() + at + 1;
    const bool isCode = text[at] == '%' && text.size() - at > 2 &&
                        std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2;
    decoded += isCode ? static_cast<char>(code) : text[at];
    if (isCode) at += 2;
  }
  return decoded;
}

std::string EncodePercent(std::string_view text) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  std::string encoded;
  for (const char letter : text) {
    const auto code = static_cast<unsigned char>(letter);
    if (kPlain.find(letter) != std::string_view::npos) {
      encoded += letter;
    } else {
      encoded += {'%', kHexDigits[code / 16], kHexDigits[code % 16]};
    }
  }
  return encoded;
}

}  // namespace NZELVYR20

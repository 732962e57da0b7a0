#pragma once

namespace NZELVYR20 {

/// Whether a byte of UTF-8 begins a character; the others go on with one.
inline bool StartsCharacter(char byte) noexcept {
  return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

}  // namespace NZELVYR20

#include "MofUnicode.h"

#include <algorithm>
#include <boost/locale/utf.hpp>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "TMofSource.h"

namespace NZELVYR20 {
namespace {

namespace utf = boost::locale::utf;
using TUtf8 = utf::utf_traits<char>;
using TUtf16 = utf::utf_traits<char16_t>;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleEndianMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigEndianMark = "\xFE\xFF";

bool StartsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

[[noreturn]] void Refuse(const std::string& what, std::size_t byte) {
  throw std::invalid_argument(what + " at byte " + std::to_string(byte + 1));
}

[[noreturn]] void RefuseUtf8(const std::string& what, const std::string& bytes, std::size_t byte) {
  const TMofSource before({}, bytes.substr(0, byte));
  const TMofPosition position = before.Locate({before.GetText().data() + byte});
  throw std::invalid_argument(what + " at line " + std::to_string(position.line) + ", column " +
                              std::to_string(position.column));
}

/// Of the bytes of UTF-8 only NUL and those outside of ASCII need a look.
bool NeedsLook(char byte) {
  return byte == '\0' || (static_cast<unsigned char>(byte) & 0x80U) != 0;
}

/// The next byte that needs a look, from `at` on. Most texts have none: eight are looked at at
/// once.
std::string::const_iterator FindLook(std::string::const_iterator at,
                                     std::string::const_iterator end) {
  constexpr std::uint64_t kOnes = 0x0101010101010101U;
  constexpr std::uint64_t kHighBits = kOnes << 7U;
  std::uint64_t eight = 0;
  for (; end - at >= static_cast<std::ptrdiff_t>(sizeof eight); at += sizeof eight) {
    std::memcpy(&eight, &*at, sizeof eight);
    // One less than a NUL has the high bit; below a NUL nothing borrows.
    if (((eight | (eight - kOnes)) & kHighBits) != 0) break;
  }
  return std::find_if(at, end, NeedsLook);
}

void CheckUtf8(const std::string& bytes) {
  auto at = FindLook(bytes.begin(), bytes.end());
  while (at != bytes.end()) {
    const auto byte = static_cast<std::size_t>(at - bytes.begin());
    if (*at == '\0') RefuseUtf8("not a text: there is a NUL", bytes, byte);
    if (!utf::is_valid_codepoint(TUtf8::decode(at, bytes.end()))) {
      RefuseUtf8("not UTF-8: there is no character", bytes, byte);
    }
    at = FindLook(at, bytes.end());
  }
}

std::vector<char16_t> ReadUnits(std::string_view bytes, std::size_t highByte) {
  if (bytes.size() % 2 != 0) Refuse("not UTF-16: half a character", bytes.size() - 1);
  std::vector<char16_t> units(bytes.size() / 2);
  for (std::size_t index = 0; index < units.size(); ++index) {
    const auto high = static_cast<unsigned char>(bytes[2 * index + highByte]);
    const auto low = static_cast<unsigned char>(bytes[2 * index + 1 - highByte]);
    units[index] = static_cast<char16_t>(high << 8U | low);
  }
  return units;
}

/// `highByte` is the index, in each pair of bytes, of the more significant one.
std::string DecodeUtf16(std::string_view bytes, std::size_t highByte) {
  const std::vector<char16_t> units = ReadUnits(bytes, highByte);
  std::string text;
  text.reserve(units.size());
  for (auto at = std::next(units.begin()); at != units.end();) {
    const auto byte = static_cast<std::size_t>(at - units.begin()) * 2;
    const utf::code_point code = TUtf16::decode(at, units.end());
    if (!utf::is_valid_codepoint(code)) Refuse("not UTF-16: half of a pair of surrogates", byte);
    if (code == 0) Refuse("not a text: there is a NUL", byte);
    AppendUtf8(text, code);
  }
  return text;
}

}  // namespace

std::string DecodeMofText(std::string bytes) {
  if (StartsWith(bytes, kUtf16LittleEndianMark)) return DecodeUtf16(bytes, 1);
  if (StartsWith(bytes, kUtf16BigEndianMark)) return DecodeUtf16(bytes, 0);
  CheckUtf8(bytes);
  if (StartsWith(bytes, kUtf8Mark)) bytes.erase(0, kUtf8Mark.size());
  return bytes;
}

void AppendUtf8(std::string& text, std::uint32_t code) {
  TUtf8::encode(code, std::back_inserter(text));
}

std::uint32_t DecodeUtf8(std::string_view text) {
  const char* at = text.data();
  return TUtf8::decode(at, at + text.size());
}

}  // namespace NZELVYR20

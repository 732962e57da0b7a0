#include "TMofValueText.h"

#include <algorithm>
#include <array>
#include <boost/locale/utf.hpp>
#include <cstdio>
#include <limits>
#include <utility>
#include <vector>

#include "IsShown.h"
#include "MofUnicode.h"
#include "StartsCharacter.h"
#include "TCIMDateTime.h"
#include "TCIMReference.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kWidth = 80;
constexpr std::size_t kUnlimited = std::numeric_limits<std::size_t>::max();

constexpr unsigned kRawByte = 0xDC00;  ///< a byte is taken for the half of a pair that it makes

using TPieces = std::vector<std::string>;

std::size_t Columns(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), StartsCharacter));
}

/// Always four digits, so that a digit may follow.
std::string HexEscape(unsigned code) {
  std::array<char, 8> escape{};
  std::snprintf(escape.data(), escape.size(), "\\x%04X", code & 0xFFFFU);
  return escape.data();
}

/// One ASCII character between quotes of the given kind.
std::string Escape(char character, char quote) {
  constexpr const char* kSpecial = "\n\t\r\b\f";
  constexpr const char* kLetters = "ntrbf";
  if (character == quote || character == '\\') return {'\\', character};
  if (character >= 0x20 && character != 0x7F) return {character};
  const char* const special = std::find(kSpecial, kSpecial + 5, character);
  if (special != kSpecial + 5) return {'\\', kLetters[special - kSpecial]};
  return HexEscape(static_cast<unsigned char>(character));
}

/// What a terminal would obey is escaped; NUL, and bytes that are no UTF-8, would make the text
/// unreadable.
std::string EscapeText(const char* next, const char* end) {
  std::string escaped;
  while (next != end) {
    const char* const start = next;
    const auto code = boost::locale::utf::utf_traits<char>::decode(next, end);
    if (code == 0) {
      escaped += HexEscape(kReplacement);
    } else if (code < 0x80) {
      escaped += Escape(*start, '"');
    } else if (IsShown(code)) {
      escaped.append(start, next);
    } else if (boost::locale::utf::is_valid_codepoint(code)) {
      escaped += HexEscape(code);
    } else {
      escaped += HexEscape(kRawByte + static_cast<unsigned char>(*start));
      next = start + 1;
    }
  }
  return escaped;
}

/// In quotes, in pieces of at most `width` columns, except where a single word is longer.
TPieces TextPieces(const std::string& text, std::size_t width) {
  TPieces pieces;
  std::string piece = "\"";
  std::size_t columns = 2;  // with both quotes
  for (std::size_t start = 0, end = 0; start < text.size(); start = end) {
    end = std::min(text.find_first_of(" \n", start), text.size() - 1) + 1;
    const std::string word = EscapeText(text.data() + start, text.data() + end);
    const std::size_t wordColumns = Columns(word);
    if (piece.size() > 1 && columns + wordColumns > width) {
      pieces.push_back(std::exchange(piece, "\"") + '"');
      columns = 2;
    }
    piece += word;
    columns += wordColumns;
  }
  pieces.push_back(piece + '"');
  return pieces;
}

std::string CharacterText(const TCIMValue& value) {
  const auto code = static_cast<char16_t>(value);
  if (code < 0x80) return '\'' + Escape(static_cast<char>(code), '\'') + '\'';
  return '\'' + (IsShown(code) ? value.ToString(10) : HexEscape(code)) + '\'';
}

/// With a point, which tells it from an integer.
std::string RealText(const TCIMValue& value) {
  std::string text = value.ToString(10);
  if (text.find('n') != std::string::npos) return "NULL /* " + text + " */";  // inf and nan
  if (text.find('.') == std::string::npos) text.insert(std::min(text.find('e'), text.size()), ".0");
  return text;
}

TPieces ScalarPieces(const TCIMValue& value, std::size_t width) {
  if (value.IsNull()) return {"NULL"};
  switch (value.GetType()) {
    case TCIMValue::TCIMType::kBoolean:
      return {static_cast<bool>(value) ? "true" : "false"};
    case TCIMValue::TCIMType::kReal32:
    case TCIMValue::TCIMType::kReal64:
      return {RealText(value)};
    case TCIMValue::TCIMType::kChar16:
      return {CharacterText(value)};
    case TCIMValue::TCIMType::kString:
      return TextPieces(static_cast<std::string>(value), width);
    case TCIMValue::TCIMType::kDateTime:
      return {'"' + static_cast<TCIMDateTime>(value).ToCIMString() + '"'};
    case TCIMValue::TCIMType::kReference:
      return TextPieces(static_cast<TCIMReference>(value).ToString(), width);
    default:
      return {value.ToString(10)};
  }
}

/// The value without an array's braces; `tail` ends the last piece.
TPieces ValuePieces(const TCIMValue& value, const std::string& tail, std::size_t width) {
  TPieces pieces;
  if (value.IsNull() || !value.IsArray()) {
    pieces = ScalarPieces(value, width);
  } else {
    for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value)) {
      if (!pieces.empty()) pieces.back() += ',';
      for (std::string& piece : ScalarPieces(element, width)) pieces.push_back(std::move(piece));
    }
    if (pieces.empty()) pieces.emplace_back();
  }
  pieces.back() += tail;
  return pieces;
}

std::string Join(const TPieces& pieces) {
  std::string line;
  for (const std::string& piece : pieces) {
    if (!line.empty()) line += ' ';
    line += piece;
  }
  return line;
}

/// Begins a line and puts as many pieces on each as fit.
void Fill(std::string& text, const TPieces& pieces, std::size_t margin) {
  std::size_t columns = kWidth;
  for (const std::string& piece : pieces) {
    const std::size_t pieceColumns = Columns(piece);
    if (columns + 1 + pieceColumns > kWidth) {
      text += '\n' + std::string(margin, ' ');
      columns = margin + pieceColumns;
    } else {
      text += ' ';
      columns += 1 + pieceColumns;
    }
    text += piece;
  }
}

}  // namespace

void TMofValueText::Append(std::string& text, std::string head, const TCIMValue& value,
                           std::string tail, std::size_t margin) {
  if (value.IsArray() && !value.IsNull()) {
    head += '{';
    tail.insert(0, 1, '}');
  }
  const std::string line = Join(ValuePieces(value, tail, kUnlimited));
  if (head.size() + Columns(line) <= kWidth) {
    text += head + line;
    return;
  }
  if (head.back() == ' ') head.pop_back();
  text += head;
  Fill(text, ValuePieces(value, tail, kWidth - margin - tail.size()), margin);
}

}  // namespace NZELVYR20

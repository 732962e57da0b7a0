#include "TText.h"

#include <algorithm>
#include <boost/locale/utf.hpp>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "IsShown.h"
#include "TextWidth.h"

namespace NZELVYR20 {
namespace {

using TUtf8 = boost::locale::utf::utf_traits<char>;

std::string Escape(unsigned char byte) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  switch (byte) {
    case '\n':
      return "\\n";
    case '\t':
      return "\\t";
    default:
      return {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
  }
}

/// What every terminal shows as it is: nearly all that is ever printed.
bool IsPlain(char letter) { return letter >= ' ' && letter <= '~'; }

/// Adds the character at `next`, escaped where a terminal would obey it, and goes past it.
void AppendEscaped(std::string& escaped, const char*& next, const char* end,
                   std::string_view kept) {
  const char* const start = next;
  const std::uint32_t code = TUtf8::decode(next, end);
  // Of broken UTF-8 one byte is taken at a time: the next may be a character.
  if (!boost::locale::utf::is_valid_codepoint(code)) next = start + 1;
  if (IsShown(code) || kept.find(*start) != std::string_view::npos) {
    escaped.append(start, next);
    return;
  }
  for (const char* byte = start; byte != next; ++byte) {
    escaped += Escape(static_cast<unsigned char>(*byte));
  }
}

/// The control characters in `kept` stay.
std::string EscapeObeyed(const std::string& text, std::string_view kept) {
  std::string escaped;
  const char* const end = text.data() + text.size();
  for (const char* next = text.data(); next != end;) {
    const char* const plain = next;
    next = std::find_if_not(plain, end, IsPlain);
    escaped.append(plain, next);
    if (next != end) AppendEscaped(escaped, next, end, kept);
  }
  return escaped;
}

/// Adds what an escape at the beginning of `text` stands for; returns how long it is. One that only
/// paths know stays.
std::size_t AppendRestored(std::string& restored, std::string_view text) {
  const std::string_view escape = text.substr(0, 2);
  const std::string_view digits = text.substr(escape.size(), 2);
  unsigned char byte = 0;
  if (escape == "\\n" || escape == "\\t") {
    restored += escape[1] == 'n' ? '\n' : '\t';
  } else if (escape == "\\x" && digits.size() == 2 &&
             std::from_chars(digits.begin(), digits.end(), byte, 16).ptr == digits.end()) {
    restored += static_cast<char>(byte);
    return escape.size() + digits.size();
  } else {
    restored += escape;
  }
  return escape.size();
}

}  // namespace

std::string TText::OneLine(const std::string& text) { return EscapeObeyed(text, ""); }

std::string TText::Printable(const std::string& text) { return EscapeObeyed(text, "\n\t"); }

bool TText::IsVisible(const std::string& text) { return OneLine(text) == text; }

std::string TText::RestorePath(const std::string& path) {
  std::string restored;
  std::string_view rest = path;
  while (!rest.empty()) {
    const std::size_t plain = std::min(rest.find('\\'), rest.size());
    restored += rest.substr(0, plain);
    rest.remove_prefix(plain);
    rest.remove_prefix(AppendRestored(restored, rest));
  }
  return restored;
}

std::vector<std::string> TText::Wrap(const std::string& text, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (text.size() - start > width) {
    std::size_t last = text.find_last_of(" ,", start + width - 1);
    if (last == std::string::npos || last <= start) last = text.find_first_of(" ,", start + width);
    if (last == std::string::npos) break;
    lines.push_back(text.substr(start, last + 1 - start));
    start = last + 1;
  }
  if (start < text.size()) lines.push_back(text.substr(start));
  return lines;
}

std::string TText::Cut(const std::string& text, std::size_t width, const std::string& mark) {
  if (SizeWithin(text, width) == text.size()) return text;
  const std::size_t room = width - std::min(width, TextWidth(mark));
  return text.substr(0, SizeWithin(text, room)) + mark;
}

std::string TText::Join(const std::vector<std::string>& parts, const std::string& separator) {
  std::string text;
  for (const auto& part : parts) text += (text.empty() ? "" : separator) + part;
  return text;
}

std::string TText::Count(std::size_t number, const std::string& noun) {
  return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

}  // namespace NZELVYR20

#include "TextWidth.h"

#include <clocale>
#include <cwchar>

#include <boost/locale/utf.hpp>
#include <string>
#include <string_view>
#include <utility>

namespace NZELVYR20 {
namespace {

using TUtf8 = boost::locale::utf::utf_traits<char>;

/// The program itself works in the locale of C, which knows no character but those of ASCII.
std::size_t AskWidth(wchar_t character) {
  static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  if (unicode == nullptr) return 1;
  const locale_t earlier = uselocale(unicode);
  const int width = wcwidth(character);
  uselocale(earlier);
  return width < 0 ? 1 : static_cast<std::size_t>(width);
}

/// Takes a character off `next` and gives its width.
std::size_t TakeCharacter(const char*& next, const char* end) {
  if (static_cast<unsigned char>(*next) < 0x80) {
    ++next;
    return 1;
  }
  const char* const start = next;
  const auto code = TUtf8::decode(next, end);
  if (boost::locale::utf::is_valid_codepoint(code)) return AskWidth(static_cast<wchar_t>(code));
  next = start + 1;
  return 1;
}

/// After which letter of a full line to break it: best where words end, else where parts of a path
/// do, else at its end.
std::size_t FindBreak(const std::string& line) {
  for (const char* const ends : {" ,", ".:/="}) {
    const std::size_t last = line.find_last_of(ends);
    if (last != std::string::npos && line.find_first_not_of(' ') < last) return last + 1;
  }
  return line.size();
}

/// What stands after the break begins the next line.
void Break(std::vector<std::string>& lines) {
  std::string& line = lines.back();
  const std::size_t end = FindBreak(line);
  std::string rest = line.substr(end);
  line.erase(line.find_last_not_of(' ', end - 1) + 1);
  lines.push_back(std::move(rest));
}

}  // namespace

std::size_t TextWidth(const std::string& text) {
  std::size_t width = 0;
  const char* const end = text.data() + text.size();
  for (const char* next = text.data(); next != end;) width += TakeCharacter(next, end);
  return width;
}

std::size_t SizeWithin(std::string_view text, std::size_t width) {
  const char* const end = text.data() + text.size();
  std::size_t used = 0;
  for (const char* next = text.data(); next != end;) {
    const char* const start = next;
    used += TakeCharacter(next, end);
    if (used > width) return static_cast<std::size_t>(start - text.data());
  }
  return text.size();
}

std::vector<std::string> FoldText(const std::string& text, std::size_t width) {
  if (TextWidth(text) <= width) return {text};
  std::vector<std::string> lines(1);
  std::size_t used = 0;
  const char* const end = text.data() + text.size();
  for (const char* next = text.data(); next != end;) {
    const char* const start = next;
    const std::size_t more = TakeCharacter(next, end);
    if (used + more > width && !lines.back().empty()) {
      Break(lines);
      used = TextWidth(lines.back());
      if (*start == ' ' && used == 0) continue;
    }
    lines.back().append(start, next);
    used += more;
  }
  return lines;
}

}  // namespace NZELVYR20

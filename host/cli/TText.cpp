#include "TText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace NZELVYR20 {
namespace {

bool IsControl(unsigned char character) { return character < 0x20 || character == 0x7f; }

std::string Escape(unsigned char character) {
  static const std::string kDigits = "0123456789abcdef";
  switch (character) {
    case '\n':
      return "\\n";
    case '\t':
      return "\\t";
    default:
      return std::string("\\x") + kDigits[character / 16] + kDigits[character % 16];
  }
}

/// The control characters in `kept` stay.
std::string EscapeControls(const std::string& text, std::string_view kept) {
  std::string escaped;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    const bool stays = !IsControl(byte) || kept.find(character) != std::string_view::npos;
    escaped += stays ? std::string(1, character) : Escape(byte);
  }
  return escaped;
}

}  // namespace

std::string TText::OneLine(const std::string& text) { return EscapeControls(text, ""); }

std::string TText::Printable(const std::string& text) { return EscapeControls(text, "\n\t"); }

std::vector<std::string> TText::Wrap(const std::string& text, std::size_t width) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (text.size() - start > width) {
    std::size_t last = text.find_last_of(" ,", start + width - 1);
    if (last == std::string::npos || last <= start) {
      last = text.find_first_of(" ,", start + width);
    }
    if (last == std::string::npos) {
      break;
    }
    lines.push_back(text.substr(start, last + 1 - start));
    start = last + 1;
  }
  if (start < text.size()) {
    lines.push_back(text.substr(start));
  }
  return lines;
}

std::string TText::Join(const std::vector<std::string>& parts, const std::string& separator) {
  std::string text;
  for (const auto& part : parts) {
    text += (text.empty() ? "" : separator) + part;
  }
  return text;
}

std::string TText::Count(std::size_t number, const std::string& noun) {
  return std::to_string(number) + " " + noun + (number == 1 ? "" : "s");
}

}  // namespace NZELVYR20

#include "TXmlWriter.h"

#include <algorithm>
#include <boost/locale/utf.hpp>

#include "IsXmlCharacter.h"

namespace NZELVYR20 {
namespace {

constexpr std::size_t kPiece = std::size_t{64} * 1024;
constexpr const char* kReplacement = "\xEF\xBF\xBD";

bool IsPlain(char character) {
  const auto code = static_cast<unsigned char>(character);
  return code >= 0x20 && code < 0x80 && code != '&' && code != '<' && code != '>' && code != '"';
}

/// A reader of attributes takes line ends and tabs for blanks, one of texts a carriage return for
/// the end of a line.
const char* EscapeOf(char character, bool isAttribute) {
  switch (character) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return isAttribute ? "&quot;" : "\"";
    case '\r':
      return "&#13;";
    case '\n':
      return isAttribute ? "&#10;" : "\n";
    case '\t':
      return isAttribute ? "&#9;" : "\t";
    default:
      return kReplacement;
  }
}

}  // namespace

TXmlWriter::TXmlWriter(IAnswerSink& sink) : sink_(sink) {}

void TXmlWriter::WriteDeclaration() { buffer_ += "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"; }

void TXmlWriter::WriteEmpty(const char* name, std::initializer_list<TXmlAttribute> attributes) {
  WriteElement(name, attributes, [] {});
}

void TXmlWriter::WriteTextElement(const char* name, std::string_view text) {
  WriteElement(name, [&] { WriteText(text); });
}

void TXmlWriter::WriteText(std::string_view text) {
  Escape(text, false);
  FlushFull();
}

void TXmlWriter::Flush() {
  if (!buffer_.empty()) sink_.Write(buffer_);
  buffer_.clear();
}

void TXmlWriter::WriteStart(const char* name, std::initializer_list<TXmlAttribute> attributes) {
  buffer_ += '<';
  buffer_ += name;
  for (const TXmlAttribute& attribute : attributes) {
    if (!attribute.value) continue;
    buffer_ += ' ';
    buffer_ += attribute.name;
    buffer_ += "=\"";
    Escape(*attribute.value, true);
    buffer_ += '"';
  }
  buffer_ += '>';
}

void TXmlWriter::WriteEnd(const char* name) {
  buffer_ += "</";
  buffer_ += name;
  buffer_ += '>';
  FlushFull();
}

void TXmlWriter::Escape(std::string_view text, bool isAttribute) {
  const char* next = text.data();
  const char* const end = next + text.size();
  while (next != end) {
    const char* const start = next;
    next = std::find_if_not(start, end, IsPlain);
    buffer_.append(start, next);
    if (next == end) return;
    const char* const special = next;
    const auto code = boost::locale::utf::utf_traits<char>::decode(next, end);
    if (code < 0x80) {
      buffer_ += EscapeOf(*special, isAttribute);
    } else if (IsXmlCharacter(code)) {
      buffer_.append(special, next);
    } else {
      buffer_ += kReplacement;
      if (!boost::locale::utf::is_valid_codepoint(code)) next = special + 1;
    }
  }
}

void TXmlWriter::FlushFull() {
  if (buffer_.size() >= kPiece) Flush();
}

}  // namespace NZELVYR20

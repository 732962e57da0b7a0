#include "TMofLiteralBuilder.h"

#include <charconv>
#include <utility>

#include "MofUnicode.h"
#include "TMofSyntaxError.h"

namespace NZELVYR20 {
namespace {

constexpr std::uint32_t kLargestCharacter = 0xFFFF;
constexpr std::uint64_t kLargestNegative = 0x8000000000000000U;

bool IsHighSurrogate(std::uint32_t code) { return code >= 0xD800 && code <= 0xDBFF; }
bool IsLowSurrogate(std::uint32_t code) { return code >= 0xDC00 && code <= 0xDFFF; }

/// Alone, such a half of a pair stands for a byte that was no UTF-8.
bool IsRawByte(std::uint32_t code) { return code >= 0xDC80 && code <= 0xDCFF; }

char ResolveEscape(char letter) {
  switch (letter) {
    case 'b':
      return '\b';
    case 't':
      return '\t';
    case 'n':
      return '\n';
    case 'f':
      return '\f';
    case 'r':
      return '\r';
    default:
      return letter;
  }
}

bool HasLineEnd(std::string_view text) {
  return text.find_first_of("\r\n") != std::string_view::npos;
}

/// Of "x41": 0x41.
std::uint32_t ResolveHexEscape(std::string_view escape) {
  std::uint32_t code = 0;
  std::from_chars(escape.data() + 1, escape.data() + escape.size(), code, 16);
  return code;
}

}  // namespace

/// A mark is missing where it should stand, which may be lines before what stands there instead;
/// and after a text of several lines a quote may be missing on the first of them.
TMofSyntaxError TMofLiteralBuilder::MakeExpectation(const char* expected,
                                                    std::string_view rest) const {
  TMofSyntaxError error{rest.data(),
                        std::string("expected ") + expected + ", found " + DescribeMof(rest)};
  if (gap_.data() == nullptr || gap_.data() + gap_.size() != rest.data()) return error;
  if (piece_.data() + piece_.size() == gap_.data() && HasLineEnd(piece_)) {
    const std::size_t line = source_.Locate({piece_.data()}).line;
    error.text += "; the text before it began on line " + std::to_string(line);
  }
  if (*expected == '"' && HasLineEnd(gap_)) error.where = gap_.data();
  return error;
}

void TMofLiteralBuilder::ForgetLiteral() {
  gap_ = piece_ = plainText_ = {};
  text_.clear();
  highSurrogate_ = 0;
}

void TMofLiteralBuilder::SetLiteral(TMofLiteral::EKind kind, std::string_view piece) {
  literal_ = TMofLiteral();
  literal_.kind = kind;
  literal_.place = {piece.data()};
}

void TMofLiteralBuilder::RefuseOpenComment(std::string_view opening) {
  throw TMofSyntaxError{opening.data(), "this comment never ends", true};
}

void TMofLiteralBuilder::ReadName(std::string_view name) { name_ = {name}; }

void TMofLiteralBuilder::AddPlainText(std::string_view text) {
  FlushSurrogate();
  if (plainText_.empty() && text_.empty()) {
    plainText_ = text;
  } else {
    GatherText() += text;
  }
}

std::string& TMofLiteralBuilder::GatherText() {
  text_ += std::exchange(plainText_, {});
  return text_;
}

void TMofLiteralBuilder::AddKnownEscape(std::string_view escape) {
  FlushSurrogate();
  GatherText() += ResolveEscape(escape.front());
}

void TMofLiteralBuilder::AddHexEscape(std::string_view escape) {
  const char* const where = escape.data() - 1;
  const std::uint32_t code = ResolveHexEscape(escape);
  if (code == 0) throw TMofSyntaxError{where, "a text cannot hold the NUL character"};
  const bool isPair = highSurrogate_ != 0 && IsLowSurrogate(code);
  if (isPair) return AddCode(0x10000 + ((highSurrogate_ & 0x3FFU) << 10U) + (code & 0x3FFU));
  FlushSurrogate();
  if (IsRawByte(code)) return GatherText().push_back(static_cast<char>(code & 0xFFU));
  surrogatePlace_ = {where};
  highSurrogate_ = IsHighSurrogate(code) || IsLowSurrogate(code) ? code : 0;
  if (highSurrogate_ == 0) AddCode(code);
}

void TMofLiteralBuilder::AddCode(std::uint32_t code) {
  highSurrogate_ = 0;
  AppendUtf8(GatherText(), code);
}

/// A half without the other stands for no character.
void TMofLiteralBuilder::FlushSurrogate() {
  if (highSurrogate_ == 0) return;
  AddCode(kReplacement);
  diagnostics_.Warning(surrogatePlace_, "half of a pair of surrogates is no character");
}

/// What precedes a back-slash exists: the quote, if nothing else.
void TMofLiteralBuilder::AddUnknownEscape(std::string_view escape) {
  FlushSurrogate();
  const char* const where = escape.data() - 1;
  (GatherText() += '\\') += escape;
  if (BelongsToWord(where[-1]) && BelongsToWord(escape.front())) {
    diagnostics_.Note({where}, "a back-slash in a text should be doubled");
  } else {
    diagnostics_.Warning({where}, "unknown escape; the back-slash is read as itself");
  }
}

void TMofLiteralBuilder::RefuseOpenText(std::string_view opening) {
  throw TMofSyntaxError{opening.data(), "this text never ends"};
}

void TMofLiteralBuilder::EndText(std::string_view text) {
  FlushSurrogate();
  SetLiteral(TMofLiteral::kText, text);
  literal_.text = text_.empty() ? plainText_ : source_.Keep(text_);
  plainText_ = {};
  text_.clear();
}

void TMofLiteralBuilder::ReadInteger(std::string_view digits, int base) {
  SetLiteral(TMofLiteral::kInteger, digits);
  const bool hasSign = digits.front() == '+' || digits.front() == '-';
  const std::size_t prefix = (hasSign ? 1 : 0) + (base == 16 ? 2 : 0);
  const auto result =
      std::from_chars(digits.data() + prefix, digits.data() + digits.size(), literal_.number, base);
  literal_.isNegative = digits.front() == '-' && literal_.number != 0;
  if (result.ec != std::errc() || (literal_.isNegative && literal_.number > kLargestNegative)) {
    throw TMofSyntaxError{digits.data(), QuoteMof(digits) + " does not fit into 64 bits"};
  }
}

void TMofLiteralBuilder::ReadDecimal(std::string_view digits) { ReadInteger(digits, 10); }
void TMofLiteralBuilder::ReadOctal(std::string_view digits) { ReadInteger(digits, 8); }
void TMofLiteralBuilder::ReadBinary(std::string_view digits) { ReadInteger(digits, 2); }

void TMofLiteralBuilder::ReadHexadecimal(std::string_view digits) { ReadInteger(digits, 16); }

void TMofLiteralBuilder::ReadReal(std::string_view digits) {
  SetLiteral(TMofLiteral::kReal, digits);
  literal_.text = digits.substr(digits.front() == '+' ? 1 : 0);
}

void TMofLiteralBuilder::RefuseNumber(std::string_view text) {
  throw TMofSyntaxError{text.data(), QuoteMof(text) + " is not a number"};
}

void TMofLiteralBuilder::ReadCharacter(std::string_view character) {
  literal_.number = DecodeUtf8(character);
  if (literal_.number > kLargestCharacter) {
    throw TMofSyntaxError{character.data(), "a char16 cannot hold this character"};
  }
}

void TMofLiteralBuilder::ReadKnownEscape(std::string_view escape) {
  literal_.number = static_cast<unsigned char>(ResolveEscape(escape.front()));
}

void TMofLiteralBuilder::ReadHexEscape(std::string_view escape) {
  literal_.number = ResolveHexEscape(escape);
}

void TMofLiteralBuilder::EndCharacter(std::string_view character) {
  const std::uint64_t code = literal_.number;
  SetLiteral(TMofLiteral::kCharacter, character);
  literal_.number = code;
}

void TMofLiteralBuilder::ReadNull(std::string_view word) { SetLiteral(TMofLiteral::kNull, word); }

void TMofLiteralBuilder::ReadTrue(std::string_view word) {
  ReadFalse(word);
  literal_.number = 1;
}

void TMofLiteralBuilder::ReadFalse(std::string_view word) {
  SetLiteral(TMofLiteral::kBoolean, word);
}

void TMofLiteralBuilder::EndAlias(std::string_view alias) {
  SetLiteral(TMofLiteral::kAlias, alias);
  literal_.text = name_.text;
}

}  // namespace NZELVYR20

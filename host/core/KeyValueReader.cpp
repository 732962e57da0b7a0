#include "KeyValueReader.h"

#include <charconv>
#include <cstdint>

#include "FoldName.h"
#include "PathText.h"
#include "TCIMDateTime.h"
#include "TypeText.h"

namespace NZELVYR20 {

namespace {

using TType = TCIMValue::TCIMType;

[[noreturn]] void Refuse(TType type, const std::string& text) {
  throw std::invalid_argument(text + " is no " + TypeText(type));
}

template <class TNumber>
TCIMValue ReadNumber(TType type, const std::string& text) {
  const bool hasPlus = text.size() > 1 && text[0] == '+' && text[1] != '-';
  const char* const end = text.data() + text.size();
  TNumber number{};
  const auto [rest, error] = std::from_chars(text.data() + (hasPlus ? 1 : 0), end, number);
  if (error == std::errc::result_out_of_range && rest == end) {
    throw std::invalid_argument(text + " is out of range for " + TypeText(type));
  }
  if (error != std::errc() || rest != end) Refuse(type, text);
  return number;
}

TCIMValue ReadBoolean(const std::string& text) {
  const std::string folded = FoldName(text);
  if (folded != "true" && folded != "false") Refuse(TType::kBoolean, text);
  return folded == "true";
}

TCIMValue ReadCharacterCode(const std::string& text) {
  const TCIMValue code = ReadNumber<std::uint16_t>(TType::kChar16, text);
  return static_cast<char16_t>(static_cast<std::uint16_t>(code));
}

// Takes the bits without a look at their marks; writing the result again tells whether the text
// was one well-formed character within 16 bits.
TCIMValue ReadCharacter(const std::string& text) {
  constexpr unsigned kLeadMasks[] = {0, 0x7F, 0x1F, 0x0F};
  if (text.empty() || text.size() > 3) Refuse(TType::kChar16, QuoteText(text));
  unsigned code = static_cast<unsigned char>(text[0]) & kLeadMasks[text.size()];
  for (std::size_t i = 1; i < text.size(); ++i) {
    code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  TCIMValue value(static_cast<char16_t>(code));
  if (value.ToString(10) != text) Refuse(TType::kChar16, QuoteText(text));
  return value;
}

}  // namespace

TCIMValue ReadBareKeyValue(TType type, const std::string& text) {
  switch (type) {
    case TType::kBoolean:
      return ReadBoolean(text);
    case TType::kUInt8:
      return ReadNumber<std::uint8_t>(type, text);
    case TType::kSInt8:
      return ReadNumber<std::int8_t>(type, text);
    case TType::kUInt16:
      return ReadNumber<std::uint16_t>(type, text);
    case TType::kSInt16:
      return ReadNumber<std::int16_t>(type, text);
    case TType::kUInt32:
      return ReadNumber<std::uint32_t>(type, text);
    case TType::kSInt32:
      return ReadNumber<std::int32_t>(type, text);
    case TType::kUInt64:
      return ReadNumber<std::uint64_t>(type, text);
    case TType::kSInt64:
      return ReadNumber<std::int64_t>(type, text);
    case TType::kReal32:
      return ReadNumber<float>(type, text);
    case TType::kReal64:
      return ReadNumber<double>(type, text);
    case TType::kChar16:
      return ReadCharacterCode(text);
    case TType::kString:
    case TType::kDateTime:
    case TType::kReference:
      throw std::invalid_argument(text + " is no " + TypeText(type) + " (that stands in quotes)");
    default:
      Refuse(type, text);
  }
}

TCIMValue ReadQuotedKeyValue(TType type, const std::string& text) {
  switch (type) {
    case TType::kString:
      return text;
    case TType::kChar16:
      return ReadCharacter(text);
    case TType::kDateTime:
      return TCIMDateTime::FromCIMString(text);
    default:
      Refuse(type, QuoteText(text));
  }
}

}  // namespace NZELVYR20

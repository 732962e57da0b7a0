#include "ScalarText.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <vector>

#include "FoldName.h"
#include "TCIMDateTime.h"
#include "TypeText.h"

namespace NZELVYR20 {
namespace {

using TType = TCIMValue::TCIMType;

/// The protocol's form has eight digits for days: an interval that needs more is the longest.
std::string DateTimeText(const TCIMDateTime& value) {
  constexpr std::size_t kLength = 25;
  std::string text = value.ToCIMString();
  return text.size() == kLength ? text : "99999999235959.999999:000";
}

/// Made once: a stream for each property costs more than all else that is written of it.
std::vector<std::string> ScalarTypeWords() {
  std::vector<std::string> words(TType::kArray);
  for (std::size_t type = 0; type < words.size(); ++type) {
    words[type] = TypeText(static_cast<TType::ECIMType>(type));
  }
  return words;
}

}  // namespace

const std::string& XmlTypeOf(TType type) {
  static const std::vector<std::string> words = ScalarTypeWords();
  const bool isText = type == TType::kNone || type == TType::kReferenceArray;
  return words[isText ? TType(TType::kString) : type.GetElementType()];
}

std::string RealText(std::string text) {
  if (text == "nan") return "NaN";
  if (text == "inf") return "INF";
  if (text == "-inf") return "-INF";
  if (text.find('.') == std::string::npos) text.insert(std::min(text.find('e'), text.size()), ".0");
  std::replace(text.begin(), text.end(), 'e', 'E');
  return text;
}

std::string ScalarText(const TCIMValue& value) {
  switch (value.GetType()) {
    case TType::kReal32:
    case TType::kReal64:
      return RealText(value.ToString(10));
    case TType::kDateTime:
      return DateTimeText(static_cast<TCIMDateTime>(value));
    default:
      return value.ToString(10);
  }
}

std::string BareText(const std::string& text) {
  constexpr const char* kBlanks = " \t\r\n";
  constexpr const char* kCharacters =
      "+-.0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  const std::size_t start = std::min(text.find_first_not_of(kBlanks), text.size());
  std::string bare = text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
  if (bare.find_first_not_of(kCharacters) != std::string::npos) return {};
  const std::size_t hex = FoldName(bare).find("0x");
  if (hex > 1) return bare;
  std::uint64_t number = 0;
  const char* const end = bare.data() + bare.size();
  const auto result = std::from_chars(bare.data() + hex + 2, end, number, 16);
  const bool isNumber = result.ec == std::errc() && result.ptr == end;
  return isNumber ? bare.substr(0, hex) + std::to_string(number) : std::string();
}

}  // namespace NZELVYR20

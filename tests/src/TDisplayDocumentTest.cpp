#include <boost/algorithm/string/trim.hpp>
#include <cctype>
#include <fstream>
#include <locale>
#include <map>

#include "TRepositoryTest.h"

namespace NZELVYR20 {
namespace {

/// What stands between separators that are in no brackets, without blanks around it.
TNames Split(const std::string& text, char separator) {
  TNames parts{""};
  int depth = 0;
  for (const char character : text) {
    if (character == '(' || character == '{') ++depth;
    if (character == ')' || character == '}') --depth;
    if (character == separator && depth == 0) {
      parts.emplace_back();
    } else {
      parts.back() += character;
    }
  }
  for (std::string& part : parts) boost::algorithm::trim(part);
  return parts;
}

/// What stands between back-quotes.
TNames CodeOf(const std::string& cell) {
  const TNames parts = Split(cell, '`');
  TNames code;
  for (std::size_t i = 1; i < parts.size(); i += 2) code.push_back(parts[i]);
  return code;
}

/// The text without its first and last character.
std::string InnerOf(const std::string& text) { return text.substr(1, text.size() - 2); }

TType TypeOf(const std::string& word) {
  for (int type = 0; type < 2 * TType::kArray; ++type) {
    const auto candidate = static_cast<TType::ECIMType>(type);
    if (::testing::PrintToString(TType(candidate)) == word) return candidate;
  }
  throw std::invalid_argument("no type " + word);
}

TCIMValue Read(TType type, const std::string& text) {
  if (text == "null") return TCIMValue::Null(type);
  if (type.IsArray()) {
    std::vector<TCIMValue> elements;
    for (const auto& item : Split(InnerOf(text), ',')) {
      if (!item.empty()) elements.push_back(Read(type.GetElementType(), item));
    }
    return TCIMValue::Array(type.GetElementType(), elements);
  }
  switch (type) {
    case TType::kBoolean:
      return text == "true";
    case TType::kString:
      return InnerOf(text);
    case TType::kUInt8:
      return static_cast<unsigned char>(std::stoul(text));
    case TType::kUInt16:
      return static_cast<unsigned short>(std::stoul(text));
    case TType::kUInt32:
      return static_cast<unsigned int>(std::stoul(text));
    case TType::kUInt64:
      return std::stoull(text);
    case TType::kSInt32:
      return std::stoi(text);
    default:
      return std::stod(text);
  }
}

/// Texts in braces, else a text, a flag (true where nothing is given), an 8-bit number or a null of
/// the qualifier's usual type.
TCIMValue ReadQualifierValue(const std::string& name, const std::string& text) {
  static const std::map<std::string, TType> kUnusual{{"Base", TType::kUInt8},
                                                     {"Values", TType::kStringArray},
                                                     {"AbbreviateUnits", TType::kBoolean}};
  if (text.empty()) return true;
  if (text[0] == '{') return Read(TType::kStringArray, text);
  const std::string inner = InnerOf(text);
  if (inner == "null") {
    const auto type = kUnusual.find(name);
    return TCIMValue::Null(type == kUnusual.end() ? TType(TType::kString) : type->second);
  }
  if (inner[0] == '"') return InnerOf(inner);
  return Read(std::isdigit(inner[0]) != 0 ? TType::kUInt8 : TType::kBoolean, inner);
}

/// As in much of Europe: 1.500 is more than a thousand.
struct TGrouping : std::numpunct<char> {
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

class TDisplayDocumentTest : public TRepositoryTest {
 protected:
  void TearDown() override { std::locale::global(std::locale::classic()); }

  /// The texts of a property of a new class's instance.
  TNames Show(const std::string& qualifiers, const std::string& type, const std::string& value) {
    const TCIMValue shown = Read(TypeOf(type), value);
    const auto cimClass = DefineClass("Class" + std::to_string(rows++));
    const auto declaration =
        cimClass->AllocatePropertyDecl("Shown", TCIMValue::Null(shown.GetType()), {});
    for (const std::string& qualifier : Split(qualifiers, ',')) {
      const std::size_t end = std::min(qualifier.find_first_of("({"), qualifier.size());
      if (end == 0) continue;
      const std::string name = qualifier.substr(0, end);
      Qualify(*declaration, name, ReadQualifierValue(name, qualifier.substr(end)));
    }
    declaration->AddToClass({});
    const auto property = NewInstance(cimClass, {{"Shown", shown}})->GetProperty("Shown", {});
    property->SetPrevValue(shown);
    if (shown.IsArray()) return property->ToStringVector();
    EXPECT_EQ(property->PrevValueToString(), property->ToString());
    return {property->ToString()};
  }

  void ShowEveryRow();

  int rows = 0;
};

void TDisplayDocumentTest::ShowEveryRow() {
  std::ifstream document(DISPLAY_DOCUMENT);
  for (std::string line; std::getline(document, line);) {
    const TNames cells = Split(line, '|');
    constexpr std::size_t kRowParts = 6;  // four cells, and nothing before and behind them
    const bool isHead = line.rfind("| Qualifiers", 0) == 0 || line.rfind("|-", 0) == 0;
    if (isHead || cells.size() != kRowParts) continue;
    SCOPED_TRACE(line);
    const TNames qualifiers = CodeOf(cells[1]);
    const TNames type = CodeOf(cells[2]);
    const TNames value = CodeOf(cells[3]);
    TNames shown = CodeOf(cells[4]);
    ASSERT_EQ(type.size() + value.size(), 2U) << "not laid out as a row";
    if (shown.empty() && type[0].back() != ']') shown.emplace_back();
    EXPECT_EQ(Show(qualifiers.empty() ? "" : qualifiers[0], type[0], value[0]), shown);
  }
  EXPECT_GT(rows, 90) << "rows of " DISPLAY_DOCUMENT;
}

TEST_F(TDisplayDocumentTest, EveryRowIsTrue) { ShowEveryRow(); }

TEST_F(TDisplayDocumentTest, EveryRowIsTrueInAnyGlobalLocale) {
  std::locale::global(std::locale(std::locale(), new TGrouping));
  ShowEveryRow();
}

}  // namespace
}  // namespace NZELVYR20
